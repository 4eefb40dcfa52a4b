#include "embedded/documents/command_line.h"

#include "base/encoding.h"
#include "base/format.h"
#include "base/text.h"
#include "embedded/services/host_texts.h"
#include "toolkit/plain_text.h"

#include <algorithm>

namespace drafta {

namespace {

// Commands that run each other without end are broken off here, long before the stack is.
constexpr std::size_t deepest = 50;

} // namespace

/// Marks a command or an expression as being at work, with the document that it works in as busy.
class CommandLine::Running {
public:
    Running(CommandLine& line, ryv::CStringView command, bool isTransparent, ryv::DocumentId document)
        : line_(line), document_(document) {
        line_.levels_.push_back({ryv::CString(command), isTransparent});
        if (document_ != ryv::DocumentId::none)
            line_.site_->beginBusy(document_);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        line_.levels_.pop_back();
        if (document_ != ryv::DocumentId::none)
            line_.site_->endBusy(document_);
    }

private:
    CommandLine& line_;
    ryv::DocumentId document_;
};

void CommandLine::send(ryv::DocumentId document, ryv::CStringView text, ryv::CommandStringOptions options) {
    Queue& queue = queueFor(document);
    if (options.wrapUpInactive && site_->currentDocument() != document)
        queue.input.clear();
    queue.activate = queue.activate || options.activate;
    queue.input.append(text, options.echo ? Show::everything : Show::nothing);
}

void CommandLine::type(ryv::CStringView line) {
    queueFor(site_->currentDocument()).input.append(ryv::CString(line) + u"\n", Show::values);
}

CommandLine::Queue& CommandLine::queueFor(ryv::DocumentId document) {
    const auto queue = std::find_if(
        queues_.begin(), queues_.end(), [&](const Queue& other) { return other.document == document; });
    return queue != queues_.end() ? *queue : queues_.emplace_back(Queue{document, false, {}});
}

void CommandLine::sendWork(std::function<void()> work) {
    if (work)
        work_.push_back(std::move(work));
}

void CommandLine::forget(ryv::DocumentId document) {
    std::erase_if(queues_, [&](const Queue& queue) { return queue.document == document; });
}

const CommandLine::Queue* CommandLine::queueOf(ryv::DocumentId document) const {
    for (const Queue& queue : queues_)
        if (queue.document == document)
            return &queue;
    return nullptr;
}

bool CommandLine::isWaiting(ryv::DocumentId document) const {
    const bool inScript = !sources_.empty() && document == site_->currentDocument();
    const Queue* const queue = queueOf(document);
    return inScript || (queue && !queue->input.empty());
}

bool CommandLine::hasOpenExpression(ryv::DocumentId document) const {
    const Queue* const queue = queueOf(document);
    return queue && queue->input.hasOpenExpression();
}

void CommandLine::runUntilIdle() {
    if (!levels_.empty())
        return;
    while (!ended_) {
        if (isInterrupted())
            breakOff();
        if (runOne())
            continue;
        site_->settle();
        if (!ended_ && runOne())
            continue;
        if (!ended_)
            handleMessages();
        if (ended_ || !runOne())
            return;
    }
}

void CommandLine::handleMessages() {
    callHandler([this] { site_->handleMessages(); });
}

bool CommandLine::runOne() {
    if (!work_.empty()) {
        const std::function<void()> work = std::move(work_.front());
        work_.pop_front();
        callHandler(work);
        return true;
    }
    return runFromScript() || runFromQueue();
}

bool CommandLine::runFromScript() {
    if (sources_.empty() || sources_.back()->script.empty())
        return false;
    const std::optional<InputPiece> piece = sources_.back()->input.takeCommand();
    if (!piece) {
        if (sources_.back()->input.hasOpenExpression())
            site_->print(ryv::format(
                hostText(u"\n%s: the last expression is not closed\n"), {sources_.back()->script}));
        sources_.pop_back();
        return true;
    }
    const ryv::CString script = sources_.back()->script;
    const std::size_t others = sources_.size();
    if (!runPiece(*piece) && sources_.size() == others) {
        site_->print(ryv::format(hostText(u"\n%s:%d: the script stops here\n"), {script, piece->line}));
        sources_.pop_back();
    }
    return true;
}

bool CommandLine::runFromQueue() {
    const auto runnable = [&](const Queue& queue) {
        return (queue.activate || queue.document == site_->currentDocument()) && queue.input.hasCommand();
    };
    const auto queue = std::find_if(queues_.begin(), queues_.end(), runnable);
    if (queue == queues_.end()) {
        for (Queue& other : queues_)
            other.input.dropBlanks();
        return false;
    }
    const ryv::DocumentId document = queue->document;
    const std::optional<InputPiece> piece = queue->input.takeCommand();
    if (document != site_->currentDocument())
        site_->activate(document);
    runPiece(*piece);
    return true;
}

bool CommandLine::runPiece(const InputPiece& piece) {
    if (piece.show == Show::everything)
        site_->echo(ryv::format(hostText(u"\nCommand: %s"), {piece.text}));
    return piece.isExpression ? runExpression(piece) : runTyped(piece.text, false);
}

bool CommandLine::runExpression(const InputPiece& piece) {
    const Running running(*this, piece.text, false, site_->currentDocument());
    const bool isShown = piece.show != Show::nothing;
    ryv::CString value;
    const bool finished = site_->evaluate(piece.text, isShown ? ValueForm::printed : ValueForm::none, value);
    if (finished && isShown && !value.empty())
        site_->print(ryv::format(u"\n%s", {value}));
    return finished;
}

bool CommandLine::runTyped(ryv::CStringView name, bool isTransparent) {
    if (const auto command = stack_.find(name))
        return runHandler(*command, isTransparent);
    if (!isTransparent && !isTooDeep(withoutMarks(name))) {
        const Running running(*this, name, false, site_->currentDocument());
        if (site_->callLispCommand(withoutMarks(name)))
            return !isInterrupted();
    }
    site_->print(ryv::format(hostText(u"\nUnknown command \"%s\".\n"), {ryv::onOneLine(withoutMarks(name))}));
    return false;
}

bool CommandLine::mayStart(const ryv::HostCommand& command, bool isTransparent) const {
    if (command.flags & ryv::CommandFlags::transparent)
        return true;
    return !isTransparent && std::none_of(levels_.begin(), levels_.end(),
                                 [](const Level& level) { return level.isTransparent; });
}

bool CommandLine::isTooDeep(ryv::CStringView name) {
    if (levels_.size() < deepest)
        return false;
    site_->print(ryv::format(hostText(u"\n%s: too many commands are running inside each other.\n"), {name}));
    return true;
}

/// A fault of a command or of queued work ends that, and not the host with all its open drawings.
bool CommandLine::callHandler(const std::function<void()>& handler) {
    try {
        handler();
        return true;
    } catch (const CommandCancelled&) {
        if (!isInterrupted()) // of that the one who ends the interrupt tells
            site_->print(hostText(u"\n*Cancel*\n"));
    } catch (const std::exception& fault) {
        site_->print(ryv::format(hostText(u"\nfailed: %s\n"), {ryv::decodeUtf8(fault.what())}));
    } catch (...) {
        site_->print(hostText(u"\nfailed\n"));
    }
    return false;
}

bool CommandLine::runHandler(const ryv::HostCommand& command, bool isTransparent) {
    if (!mayStart(command, isTransparent)) {
        site_->print(
            ryv::format(hostText(u"\n%s cannot be started inside another command.\n"), {command.localName}));
        return false;
    }
    if (isTooDeep(command.localName))
        return false;
    const bool outside = command.flags & ryv::CommandFlags::applicationContext;
    const ryv::DocumentId document = outside ? ryv::DocumentId::none : site_->currentDocument();
    const Running running(*this, command.globalName, isTransparent, document);
    if (document != ryv::DocumentId::none)
        site_->lockModeChanged(document, command.globalName);
    const bool finished = callHandler(command.handler);
    if (document != ryv::DocumentId::none)
        site_->lockModeChanged(document, command.globalName);
    return finished;
}

bool CommandLine::runCommand(const ryv::CStringArray& words) {
    if (words.empty())
        return false;
    auto source = std::make_unique<Source>();
    source->words.assign(words.begin() + 1, words.end());
    const Source* const own = source.get();
    sources_.push_back(std::move(source));
    const bool finished = runTyped(words[0], false);
    // Unless an interrupt took all sources away, this one goes now, with what is above it.
    sources_.erase(
        std::find_if(sources_.begin(), sources_.end(), [&](const auto& other) { return other.get() == own; }),
        sources_.end());
    return finished;
}

/// The commands of a file; null, with the reason printed, when it cannot be read.
std::unique_ptr<CommandLine::Source> CommandLine::scriptSource(ryv::CStringView path) {
    ryv::CString text;
    if (!site_->readScript(path, text))
        return nullptr;
    auto source = std::make_unique<Source>();
    source->script = site_->shownPath(path);
    source->input.append(text + u"\n", Show::everything);
    return source;
}

bool CommandLine::queueScript(ryv::CStringView path) {
    std::unique_ptr<Source> source = scriptSource(path);
    if (!source)
        return false;
    // Below the words of the command that asked for it, which are dropped when that command ends.
    const auto words = std::find_if(
        sources_.begin(), sources_.end(), [](const auto& other) { return other->script.empty(); });
    sources_.insert(words, std::move(source));
    return true;
}

bool CommandLine::runScript(ryv::CStringView path) {
    std::unique_ptr<Source> source = scriptSource(path);
    if (!source)
        return false;
    sources_.push_back(std::move(source));
    const Source* const own = sources_.back().get();
    const auto isAtWork = [&] {
        return std::any_of(
            sources_.begin(), sources_.end(), [&](const auto& other) { return other.get() == own; });
    };
    bool finished = true;
    while (finished && isAtWork()) {
        finished = !isInterrupted() && !ended_;
        if (finished)
            runFromScript();
    }
    return finished;
}

ryv::CString CommandLine::ask(ryv::CStringView prompt) {
    for (;;) {
        const std::optional<InputPiece> piece = isInterrupted() ? std::nullopt : nextLine(prompt);
        if (!piece || isInterrupted())
            throw CommandCancelled();
        if (piece->show == Show::everything)
            site_->echo(ryv::CString(prompt) + piece->text);
        if (const std::optional<ryv::CString> answer = answerFrom(*piece))
            return *answer;
    }
}

/// Nothing when the line was a transparent command, after which the question stands again.
std::optional<ryv::CString> CommandLine::answerFrom(const InputPiece& piece) {
    if (piece.isLiteral)
        return piece.text;
    if (piece.text.starts_with(u'\'')) {
        runTyped(piece.text, true);
        return std::nullopt;
    }
    if (!piece.text.starts_with(u'('))
        return piece.text;
    ryv::CString value;
    if (!site_->evaluate(piece.text, ValueForm::answer, value))
        throw CommandCancelled();
    return value;
}

std::optional<InputPiece> CommandLine::nextLine(ryv::CStringView prompt) {
    for (auto source = sources_.rbegin(); source != sources_.rend(); ++source) {
        if (!(*source)->words.empty()) {
            InputPiece word{(*source)->words.front(), Show::nothing, false, 0, true};
            (*source)->words.pop_front();
            return word;
        }
        if ((*source)->script.empty())
            break;
        if (std::optional<InputPiece> piece = (*source)->input.takeLine())
            return piece;
    }
    const bool inWords = !sources_.empty() && sources_.back()->script.empty();
    const auto queue = std::find_if(queues_.begin(), queues_.end(),
        [&](const Queue& other) { return other.document == site_->currentDocument(); });
    if (!inWords && queue != queues_.end())
        if (std::optional<InputPiece> piece = queue->input.takeLine())
            return piece;
    if (std::optional<ryv::CString> line = site_->askPerson(prompt))
        return InputPiece{*line, Show::nothing, false, 0, false};
    return std::nullopt;
}

void CommandLine::breakOff() {
    interrupted_.store(false, std::memory_order_relaxed);
    sources_.clear();
    work_.clear();
    forget(site_->currentDocument());
    site_->print(hostText(u"\n*Cancel*\n"));
}

} // namespace drafta
