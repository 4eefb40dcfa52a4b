// What the commands do. Each gets arguments that fit its entry in the command table and gives the exit code.
#pragma once

namespace kqp {

class Arguments;
struct Console;

int runShow(const Arguments& arguments, Console& console);
int runRewrite(const Arguments& arguments, Console& console);
int runEqual(const Arguments& arguments, Console& console);
int runCheck(const Arguments& arguments, Console& console);
int runLockStatus(const Arguments& arguments, Console& console);
int runWatch(const Arguments& arguments, Console& console);
int runHelp(const Arguments& arguments, Console& console);

} // namespace kqp
