// The host's LISP beside Guile, on the same two programs in the same run: recursion (fib 25), and building
// and then walking a list of a million numbers. Guile measures inside itself, behind a run that lets it
// compile; the best of several runs counts on both sides. Prints a table.
#include "base/encoding.h"
#include "embedded/lisp/interpreter.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

namespace {

using drafta::lisp::Interpreter;

constexpr int runs = 15;

struct Program {
    const char* title;
    const char16_t* definition; // ours
    const char16_t* call;
    const char* guileDefinition;
    const char* guileCall;
    std::int32_t result;
};

// The list is walked by adding up its elements, modulo 65536 so that the sum stays a small integer.
constexpr Program programs[] = {
    {"(fib 25), recursive", u"(defun fib (n) (if (< n 2) n (+ (fib (- n 1)) (fib (- n 2)))))", u"(fib 25)",
        "(define (fib n) (if (< n 2) n (+ (fib (- n 1)) (fib (- n 2)))))", "(fib 25)", 75025},
    {"building and walking a list of 1,000,000",
        u"(defun walk (n / l s) (while (> n 0) (setq l (cons n l) n (1- n))) (setq s 0)"
        u" (while l (setq s (rem (+ s (car l)) 65536) l (cdr l))) s)",
        u"(walk 1000000)",
        "(define (walk n) (let build ((n n) (l '())) (if (> n 0) (build (- n 1) (cons n l))"
        " (let add ((l l) (s 0)) (if (null? l) s (add (cdr l) (remainder (+ s (car l)) 65536)))))))",
        "(walk 1000000)", 10528},
};

/// The best time in milliseconds; ends the program when the result is not as it should be.
double ours(const Program& program) {
    using Clock = std::chrono::steady_clock;
    drafta::lisp::NullServices services;
    Interpreter lisp(services);
    double best = std::numeric_limits<double>::infinity();
    lisp.evaluate(program.definition);
    for (int run = 0; run < runs; ++run) {
        const auto start = Clock::now();
        const drafta::lisp::Result result = lisp.evaluate(program.call);
        best = std::min(best, std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        if (!result.ok() || !(result.value == drafta::lisp::Value::integer(program.result))) {
            std::fprintf(stderr, "%s: a wrong result\n", program.title);
            std::exit(1);
        }
    }
    return best;
}

/// The same in Guile; nothing when it cannot be run. It gets its own wrong results past nobody either.
std::optional<double> guile(const Program& program, const std::string& folder) {
    const std::string script = folder + "/lisp_bench.scm";
    const std::string output = folder + "/lisp_bench.txt";
    std::ofstream(script) << program.guileDefinition
                          << "\n(define (time)\n  (let ((start (get-internal-real-time)))\n"
                          << "    (if (not (= " << program.guileCall << " " << program.result
                          << ")) (exit 1))\n"
                          << "    (- (get-internal-real-time) start)))\n"
                          << "(let loop ((left " << runs << ") (best (time)))\n"
                          << "  (if (> left 0) (loop (- left 1) (min best (time)))\n"
                          << "    (display (/ (* 1000.0 best) internal-time-units-per-second))))\n";
    // What Guile compiles goes to the same folder.
    const std::string command = "XDG_CACHE_HOME=" + folder + " GUILE_AUTO_COMPILE=1 guile-3.0 " + script +
                                " >" + output + " 2>/dev/null";
    if (std::system(command.c_str()) != 0)
        return std::nullopt;
    double milliseconds = 0;
    return std::ifstream(output) >> milliseconds ? std::optional(milliseconds) : std::nullopt;
}

void printRow(const Program& program, const std::string& folder) {
    const double mine = ours(program);
    const std::optional<double> theirs = guile(program, folder);
    if (theirs)
        std::printf("| %s | %.2f | %.2f | %.2f |\n", program.title, mine, *theirs, mine / *theirs);
    else
        std::printf("| %s | %.2f | guile-3.0 is missing | |\n", program.title, mine);
}

} // namespace

int main() {
    char folder[] = "/tmp/lisp_bench.XXXXXX";
    if (!mkdtemp(folder)) {
        std::perror("a temporary folder");
        return 1;
    }
    std::printf("| ms | ours | Guile 3.0 | ratio |\n| --- | ---: | ---: | ---: |\n");
    for (const Program& program : programs)
        printRow(program, folder);
    std::filesystem::remove_all(folder);
    return 0;
}
