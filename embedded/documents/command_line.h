// The host's command line: runs commands, LISP and scripts, one after the other, each to its end.
#pragma once

#include "embedded/documents/command_input.h"
#include "embedded/documents/command_stack.h"
#include "embedded/documents/lisp_session.h"
#include "platform/host/documents.h"

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace drafta {

/// Thrown through a command's handler when its question was not answered, or the user broke it off. Handlers
/// of the host's own commands let it pass; the command line catches it.
class CommandCancelled {};

/// What the command line needs of the documents around it.
class CommandLineSite {
public:
    virtual ~CommandLineSite() = default;

    /// The document that what comes next works in; none when no document is open.
    virtual ryv::DocumentId currentDocument() = 0;
    virtual void activate(ryv::DocumentId document) = 0;

    /// A command or expression begins and ends; calls nest.
    virtual void beginBusy(ryv::DocumentId document) = 0;
    virtual void endBusy(ryv::DocumentId document) = 0;
    virtual void lockModeChanged(ryv::DocumentId document, ryv::CStringView command) = 0;

    /// Nothing waits any more: tells the observers of documents that became quiescent.
    virtual void settle() = 0;

    /// Handles the host's messages that are pending: timers, notices of changed files. May queue more.
    virtual void handleMessages() = 0;

    /// Evaluates an expression; its value in the form that is wanted. False after an error, which has been
    /// printed, and when the value is no answer.
    virtual bool evaluate(ryv::CStringView expression, ValueForm form, ryv::CString& value) = 0;

    /// Calls the LISP function "c:NAME" when there is one; false when there is none.
    virtual bool callLispCommand(ryv::CStringView name) = 0;

    virtual void print(ryv::CStringView text) = 0;
    /// Prints what stands as if it had been typed, line end included: what is printed next begins a line.
    virtual void echo(ryv::CStringView text) = 0;

    /// A path as people know it.
    virtual ryv::CString shownPath(ryv::CStringView path) = 0;

    /// Asks the person in front of the screen for a line; nothing when nobody is there.
    virtual std::optional<ryv::CString> askPerson(ryv::CStringView prompt) = 0;

    /// Reads a file of commands; false, with the reason printed, when it cannot be read.
    virtual bool readScript(ryv::CStringView path, ryv::CString& text) = 0;
};

class CommandLine {
public:
    /// The site outlives this object.
    explicit CommandLine(CommandLineSite& site) noexcept : site_(&site) {}

    CommandStack& stack() noexcept { return stack_; }

    /// Queues text for a document, and work for the time when no command is at work.
    void send(ryv::DocumentId document, ryv::CStringView text, ryv::CommandStringOptions options);
    void sendWork(std::function<void()> work);

    /// Takes a line that the person typed for the current document.
    void type(ryv::CStringView line);

    /// Forgets what is queued for a document that ends.
    void forget(ryv::DocumentId document);

    /// True when something is queued for the document, or a script is at work in it.
    bool isWaiting(ryv::DocumentId document) const;

    /// True when an expression has begun in the document's input and is not closed.
    bool hasOpenExpression(ryv::DocumentId document) const;

    /// Runs what is queued, and what that queues, until nothing is left that could run; then handles the
    /// pending messages, and runs what these queue. Called from inside a command it does nothing.
    void runUntilIdle();

    /// Handles the pending messages alone. A fault of a handler ends that, and not the host.
    void handleMessages();

    /// Runs a command now, with the words that it will ask for. See ryv::HostCommands::runCommand.
    bool runCommand(const ryv::CStringArray& words);

    /// Runs a file of commands: after the command that is at work has ended, or now and to its end.
    bool queueScript(ryv::CStringView path);
    bool runScript(ryv::CStringView path);

    /// For commands: the next line of input, from the words of runCommand, the script, what is queued, or the
    /// person. An expression in its place is evaluated. Throws CommandCancelled when there is none.
    ryv::CString ask(ryv::CStringView prompt);

    /// Nothing more is run: what is queued is forgotten, scripts stop. May be called from a signal handler.
    void end() noexcept { ended_ = true; }

    /// Breaks off what runs, with its scripts and what is queued behind it. May be called from a signal
    /// handler or another thread.
    void interrupt() noexcept { interrupted_.store(true, std::memory_order_relaxed); }
    /// Whether it was asked to since the last call.
    bool takeInterrupt() noexcept { return interrupted_.exchange(false, std::memory_order_relaxed); }
    bool isInterrupted() const noexcept { return interrupted_.load(std::memory_order_relaxed); }

    /// How many commands and expressions are at work, one inside the other.
    std::size_t depth() const noexcept { return levels_.size(); }

private:
    struct Queue {
        ryv::DocumentId document;
        bool activate = true;
        CommandInput input;
    };
    /// A script at work, or the words of a runCommand, from which nothing else is asked.
    struct Source {
        CommandInput input;             ///< of a script
        std::deque<ryv::CString> words; ///< of a command
        ryv::CString script;            ///< its path as people know it
    };
    struct Level {
        ryv::CString command;
        bool isTransparent = false; ///< started at another command's question
    };
    class Running;

    std::unique_ptr<Source> scriptSource(ryv::CStringView path);
    bool runOne();
    bool runFromScript();
    bool runFromQueue();
    bool runPiece(const InputPiece& piece);
    bool runExpression(const InputPiece& piece);
    bool runTyped(ryv::CStringView name, bool isTransparent);
    bool callHandler(const std::function<void()>& handler);
    bool isTooDeep(ryv::CStringView name);
    bool runHandler(const ryv::HostCommand& command, bool isTransparent);
    bool mayStart(const ryv::HostCommand& command, bool isTransparent) const;
    std::optional<InputPiece> nextLine(ryv::CStringView prompt);
    std::optional<ryv::CString> answerFrom(const InputPiece& piece);
    void breakOff();
    Queue& queueFor(ryv::DocumentId document);
    const Queue* queueOf(ryv::DocumentId document) const;

    CommandLineSite* site_;
    CommandStack stack_;
    std::vector<Queue> queues_;
    std::deque<std::function<void()>> work_;
    std::vector<std::unique_ptr<Source>> sources_;
    std::vector<Level> levels_;
    std::atomic<bool> interrupted_ = false;
    std::atomic<bool> ended_ = false;
};

} // namespace drafta
