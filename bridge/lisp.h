// Calls into the host's LISP. Each wrapper builds its value chain, calls, checks the status and copies the
// result out; none shows a message. When a call fails, or gives a value of another type, the output is left
// alone.
#pragma once

#include "platform/host/lisp.h"

namespace ryv {

/// Calls the function that the chain begins with. -5004 without a current document: nothing is called then.
LispStatus invokeLisp(const HostResultBuffer& call, HostResultBuffer& result);

/// Calls a function of no arguments, or of one string argument, whose result is a string. True only when the
/// call succeeded and a string came back.
bool invokeLispForString(CStringView function, CString& result);
bool invokeLispForString(CStringView function, CStringView argument, CString& result);

/// Evaluates an expression given as text; its value is let go. The host's status, -5004 without a current
/// document.
LispStatus evaluateLisp(CStringView expression);

/// Makes a LISP function callable through invokeLisp(). The expression that asks for it is the host's own and
/// may have up to 127 characters; a name that makes it longer gives `failure`, and nothing is evaluated.
LispStatus exposeLispFunction(CStringView name);

/// Reads a LISP global variable as a text: found when its value is a string.
bool readLispGlobal(CStringView name, CString& value);

/// Reads a LISP global variable as a number. An integer is found, whatever it is. A string is converted
/// (leading digits, 0 when there are none) and counts as found only when that is not 0; so the string "0"
/// reads as not found, with `value` 0, which the package's LISP code relies on. On failure `value` is left
/// alone.
bool readLispGlobal(CStringView name, int& value);

/// Tells LISP which drawings the next drawing-list command works on: their full paths in the order of
/// selection; none gives an empty list. False without a current document or when the host refuses.
bool setSelectedDrawings(const CStringArray& paths);

} // namespace ryv
