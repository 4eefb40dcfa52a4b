// The inside of an interpreter: heap, symbols, stacks, and how functions are called.
#pragma once

#include "embedded/lisp/heap.h"
#include "embedded/lisp/symbol_table.h"

#include <cstdlib>
#include <pthread.h>
#include <unordered_map>

namespace drafta::lisp {

class Reader;

/// The lines that lists begin on.
using Lines = std::unordered_map<const Cons*, std::size_t>;

/// Where forms come from, for error messages.
struct Origin {
    std::shared_ptr<const ryv::CString> source; ///< its name
    const Lines* lines = nullptr;
    std::size_t line = 0; ///< of lists that `lines` does not know
};

/// Memory that the system hands out page by page as it is used.
template <class T>
class LazyArray {
public:
    explicit LazyArray(std::size_t size)
        : items_(static_cast<T*>(std::calloc(size, sizeof(T)))), size_(size) {
        if (!items_)
            throw std::bad_alloc();
    }
    LazyArray(const LazyArray&) = delete;
    LazyArray& operator=(const LazyArray&) = delete;
    ~LazyArray() { std::free(items_); }

    T* begin() const noexcept { return items_; }
    T* end() const noexcept { return items_ + size_; }

private:
    T* items_;
    std::size_t size_;
};

/// The value that a symbol gets back when a binding ends.
struct Binding {
    Symbol* symbol;
    Value value;
};

/// How far the stacks are filled.
struct StackMarks {
    Value* top;
    Binding* bindings;
    std::size_t depth;
    const Site* site;
};

class Machine {
public:
    Machine(Interpreter& interpreter, Services& services, const Limits& limits);
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;
    ~Machine();

    Interpreter& interpreter() const noexcept { return *interpreter_; }
    Services& services() const noexcept { return *services_; }
    Heap& heap() noexcept { return heap_; }
    SymbolTable& symbols() noexcept { return symbols_; }
    const SymbolTable& symbols() const noexcept { return symbols_; }
    RootLink& roots() noexcept { return roots_; }

    Value truth() const noexcept { return truth_; }
    Value boolean(bool condition) const noexcept { return condition ? truth_ : Value(); }
    Value string(ryv::CStringView text);
    Value symbol(ryv::CStringView name) { return Value::of(symbols_.intern(name)); }
    Value cons(Value car, Value cdr) { return heap_.cons(car, cdr); }

    // The value stack: arguments and other temporary values. Whoever pushes has asked for room before, and
    // drops what was pushed.

    Value* top() const noexcept { return top_; }
    void require(std::size_t count) {
        if (count > static_cast<std::size_t>(values_.end() - top_))
            failTooDeep();
    }
    void push(Value value) noexcept { *top_++ = value; }
    void drop(Value* base) noexcept { top_ = base; }

    // Bindings of symbols.

    void bind(Symbol* symbol, Value value) {
        if (bindingTop_ == bindings_.end())
            failTooDeep();
        *bindingTop_++ = {symbol, symbol->value};
        symbol->value = value;
    }
    Binding* bindings() const noexcept { return bindingTop_; }
    void unbind(const Binding* mark) noexcept {
        while (bindingTop_ != mark) {
            --bindingTop_;
            bindingTop_->symbol->value = bindingTop_->value;
        }
    }

    StackMarks marks() const noexcept { return {top_, bindingTop_, depth_, site_}; }
    /// Puts everything back to where it was, as after an error.
    void unwind(const StackMarks& marks) noexcept;

    // Calls.

    /// Calls base[0] with the `count` values that lie on the stack behind it, and drops all of them.
    Value apply(Value* base, std::size_t count, const Site& site) {
        const Value function = *base;
        if (function.isObject() && function.object()->kind == Kind::function) {
            auto* const object = static_cast<Function*>(function.object());
            if (object->type == FunctionType::lambda)
                return callLambda(static_cast<Lambda&>(*object), base, count, site);
            if (object->type == FunctionType::builtin)
                return callBuiltin(static_cast<Builtin&>(*object), base, count, site);
        }
        return applyOther(base, count, site);
    }
    Value callBuiltin(const Builtin& builtin, Value* base, std::size_t count, const Site& site);
    /// For functions written in C++: the values come from anywhere, and the place of errors stays the
    /// caller's.
    Value call(Value function, Arguments arguments);
    /// With the elements of a list as arguments. `fillsUp`: arguments that a function written in LISP lacks
    /// at the end are nil.
    Value callWithList(Value function, Value list, bool fillsUp = false);
    /// What a symbol, a lambda list or a function stands for; throws when it is no function.
    Value functionOf(Value designator);

    /// Compiles and runs one form.
    Value evaluate(Value form, Origin origin);
    /// The place of the call under way, for forms that it makes.
    Origin currentOrigin() const;
    /// All forms of a text.
    Value evaluateText(ryv::CStringView text, ryv::CStringView source);
    /// Throws when there is no such file.
    Value loadFile(ryv::CStringView name);

    /// Runs `action` as the interpreter's public operations do: with errors caught, reported to *error*, and
    /// the stacks put back.
    Result guard(const std::function<Value()>& action);

    // Watching over it all.

    /// To be passed by every call and every turn of a loop; memory may be collected here.
    void safePoint(const Site& site) {
        if (attention_.load(std::memory_order_relaxed))
            attend(&site);
    }
    /// For long loops of functions written in C++: throws on an interruption, collects nothing.
    void poll() {
        if (attention_.load(std::memory_order_relaxed))
            checkInterruption();
    }
    /// For recursion that LISP code can drive: throws when the thread's stack nears its end.
    void checkStack() const {
        if (isStackLow())
            failTooDeep();
    }
    bool isStackLow() const noexcept {
        return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < stackLimit_;
    }
    /// What goes wrong from here on goes wrong in this place.
    void enter(const Site& site) noexcept { site_ = &site; }
    void interrupt() noexcept;
    void clearInterrupt() noexcept { interrupted_.store(false); }
    void requestBreath() noexcept;
    void collect();

    [[noreturn]] void failTooDeep() const;
    /// Raises an error at a place.
    [[noreturn]] void fail(const Site& site, ryv::CString message);

    void setExternalHandler(ExternalHandler handler) { external_ = std::move(handler); }
    const ExternalHandler& externalHandler() const noexcept { return external_; }

    /// Makes a name a function of the language.
    Builtin* define(ryv::CStringView name, std::size_t least, std::size_t most, Builtin::Plain function);
    void defineSpecial(ryv::CStringView name, Special::Compile compile);
    /// Sets a symbol; throws when it is protected.
    void set(Symbol* symbol, Value value);

private:
    friend class Entry;

    Value callLambda(const Lambda& lambda, Value* base, std::size_t count, const Site& site);
    Value applyOther(Value* base, std::size_t count, const Site& site);
    Value callNative(const Builtin& builtin, Arguments arguments);
    Lambda* compiledList(Value list);
    void attend(const Site* site);
    void checkInterruption();
    Error located(const LispError& error) const;
    std::optional<Value> readForm(Reader& reader, const std::shared_ptr<const ryv::CString>& source);
    Result failed(const LispError& error, const StackMarks& marks);
    void runErrorHandler(const ryv::CString& message);

    Interpreter* interpreter_;
    Services* services_;
    Limits limits_;
    std::atomic<bool> attention_{false};
    std::atomic<bool> interrupted_{false};
    std::atomic<bool> wantsBreath_{false};
    Heap heap_;
    SymbolTable symbols_;
    RootLink roots_;
    LazyArray<Value> values_;
    LazyArray<Binding> bindings_;
    Value* top_;
    Binding* bindingTop_;
    std::size_t depth_ = 0;
    std::uintptr_t stackLimit_ = 0;
    pthread_t thread_{};      // that stackLimit_ belongs to
    std::size_t entries_ = 0; // public operations within one another
    std::uint64_t steps_ = 0;
    const Site outside_{};       // of calls that no LISP code makes
    const Site* site_ = nullptr; // the last one that began something that may fail
    Code readingCode_;
    Site readingSite_{{}, &readingCode_, 0}; // of the last fault that the reader found
    bool inErrorHandler_ = false;
    Value truth_;
    Symbol* errorHandler_ = nullptr;
    std::unordered_map<const Cons*, Lambda*> compiledLists_; // since the last collection
    ExternalHandler external_;
};

} // namespace drafta::lisp
