// The questions that stand on the screen, one upon the other.
#pragma once

#include <functional>
#include <vector>

namespace drafta {

class OpenQuestions {
public:
    /// `stands` is called with true when a question begins to stand and with false when it ends, in pairs
    /// that nest. Both functions may be unset.
    OpenQuestions(std::function<void(bool)> stands, std::function<bool()> hasQuit)
        : stands_(std::move(stands)), hasQuit_(std::move(hasQuit)) {}
    OpenQuestions(const OpenQuestions&) = delete;
    OpenQuestions& operator=(const OpenQuestions&) = delete;

    bool any() const noexcept { return !closers_.empty(); }

    /// Whether the host is being left, and nobody is to be asked any more.
    bool hasQuit() const { return hasQuit_ && hasQuit_(); }

    /// Cancels all of them, the innermost first. They are gone when their loops have returned.
    void closeAll();

    /// One question, for as long as it stands.
    class Standing {
    public:
        explicit Standing(OpenQuestions& questions);
        Standing(const Standing&) = delete;
        Standing& operator=(const Standing&) = delete;
        ~Standing();

        /// How to cancel it, once there is something on the screen; may come again. `close` makes the
        /// question's loop return.
        void closeWith(std::function<void()> close);

    private:
        OpenQuestions& questions_;
        std::size_t place_;
    };

private:
    std::function<void(bool)> stands_;
    std::function<bool()> hasQuit_;
    std::vector<std::function<void()>> closers_; // one for each question, outermost first
};

} // namespace drafta
