// An event as the package's modules know it: a list of receivers with the member function to call.
#pragma once

#include <memory>
#include <typeinfo>
#include <utility>

namespace ryv {

/// A singly linked list of subscriptions; subscribing puts one at its head, so handlers run newest first.
/// Receivers are not owned and unsubscribe before they end. Main thread only.
///
/// Handlers may come and go while the event is being fired: one that is subscribed meanwhile is not called by
/// that firing, one that is unsubscribed is not called any more. Copies start without subscriptions, which
/// belong to the object that they were made with.
template <class... Args>
class HandlerList {
public:
    HandlerList() = default;
    HandlerList(const HandlerList&) noexcept {}
    HandlerList& operator=(const HandlerList&) noexcept { return *this; }
    HandlerList(HandlerList&& other) noexcept : head_(std::exchange(other.head_, nullptr)) {}
    HandlerList& operator=(HandlerList&& other) noexcept {
        std::swap(head_, other.head_);
        return *this;
    }
    ~HandlerList() {
        while (head_)
            head_ = std::move(head_->next); // one by one: a chain of owners would end recursively
    }

    template <class Receiver, class Base>
    void subscribe(Receiver& receiver, void (Base::*function)(Args...)) {
        auto node = std::make_unique<NodeOf<Base>>(receiver, function);
        node->next = std::move(head_);
        head_ = std::move(node);
    }

    /// Removes the newest subscription of that receiver and function; false when there is none.
    template <class Receiver, class Base>
    bool unsubscribe(Receiver& receiver, void (Base::*function)(Args...)) {
        const NodeOf<Base> wanted(receiver, function);
        for (Node* node = head_.get(); node; node = node->next.get())
            if (!node->ended && node->isSame(wanted)) {
                node->ended = true;
                sweep();
                return true;
            }
        return false;
    }

    /// Removes every subscription of a receiver, which is named by the address it was subscribed with.
    void removeAll(const void* receiver) {
        for (Node* node = head_.get(); node; node = node->next.get())
            node->ended = node->ended || node->receiver == receiver;
        sweep();
    }

    bool empty() const noexcept { return !head_; }

    /// Fires the event.
    void operator()(Args... args) {
        const Firing firing(*this);
        for (Node* node = head_.get(); node; node = node->next.get())
            if (!node->ended)
                node->call(args...);
    }

private:
    struct Node {
        Node() = default;
        Node(const Node&) = delete;
        Node& operator=(const Node&) = delete;
        virtual ~Node() = default;
        virtual void call(Args... args) = 0;
        virtual bool isSame(const Node& other) const = 0;

        std::unique_ptr<Node> next;
        const void* receiver = nullptr;
        bool ended = false;
    };

    template <class Base>
    struct NodeOf final : Node {
        template <class Receiver>
        NodeOf(Receiver& object, void (Base::*member)(Args...)) : base(&object), function(member) {
            this->receiver = &object;
        }
        void call(Args... args) override { (base->*function)(args...); }
        bool isSame(const Node& other) const override {
            return this->receiver == other.receiver && typeid(other) == typeid(NodeOf) &&
                   static_cast<const NodeOf&>(other).function == function;
        }
        Base* base;
        void (Base::*function)(Args...);
    };

    /// Nodes that ended are kept until no firing walks the list.
    class Firing {
    public:
        explicit Firing(HandlerList& list) : list_(list) { ++list_.firings_; }
        Firing(const Firing&) = delete;
        Firing& operator=(const Firing&) = delete;
        ~Firing() {
            --list_.firings_;
            list_.sweep();
        }

    private:
        HandlerList& list_;
    };

    void sweep() {
        if (firings_ > 0)
            return;
        for (std::unique_ptr<Node>* link = &head_; *link;) {
            if ((*link)->ended)
                *link = std::move((*link)->next);
            else
                link = &(*link)->next;
        }
    }

    std::unique_ptr<Node> head_;
    int firings_ = 0;
};

} // namespace ryv
