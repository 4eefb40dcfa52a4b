#include "embedded/lisp/printer.h"

#include "base/text.h"
#include "embedded/lisp/lisp_file.h"

#include <array>
#include <charconv>

namespace drafta::lisp {

namespace {

constexpr std::size_t briefLength = 160; // units, about
constexpr std::size_t briefDepth = 20;

/// Prints in full with a machine to watch over it, or briefly without.
class Printer {
public:
    Printer(Machine* machine, bool quoted) noexcept : machine_(machine), quoted_(quoted) {}

    void print(Value value) {
        if (value.isCons())
            printList(value);
        else
            printAtom(value);
    }
    ryv::CString take() { return std::move(out_); }

private:
    bool isFull() {
        if (!machine_)
            return out_.size() > briefLength;
        machine_->poll();
        machine_->checkStack();
        machine_->heap().requireRoom(out_.size() * sizeof(char16_t));
        return false;
    }

    void printList(Value list) {
        if (!machine_ && depth_ == briefDepth) {
            out_ += u"(...)";
            return;
        }
        ++depth_;
        out_ += u'(';
        for (bool first = true; list.isCons(); list = list.cdr(), first = false) {
            if (!first)
                out_ += u' ';
            if (isFull()) {
                out_ += u"...";
                list = {};
                break;
            }
            print(list.car());
        }
        if (!list.isNil()) {
            out_ += u" . ";
            printAtom(list);
        }
        out_ += u')';
        --depth_;
    }

    void printAtom(Value value) {
        switch (value.kind()) {
        case Kind::nil:
            out_ += u"nil";
            return;
        case Kind::integer:
            out_ += ryv::toText(value.asInteger());
            return;
        case Kind::real:
            out_ += printedReal(value.asReal());
            return;
        case Kind::string:
            printString(value.text());
            return;
        case Kind::symbol:
            out_ += value.text();
            return;
        default:
            printOther(value);
        }
    }

    void printString(ryv::CStringView text) {
        if (!machine_ && text.size() > briefLength) {
            printString(text.substr(0, briefLength));
            return;
        }
        if (!quoted_) {
            out_ += text;
            return;
        }
        out_ += u'"';
        for (const char16_t unit : text)
            printUnit(unit);
        out_ += u'"';
    }

    void printUnit(char16_t unit) {
        constexpr ryv::CStringView special = u"\"\\\n\r\t\x1b";
        constexpr ryv::CStringView letters = u"\"\\nrte";
        const std::size_t index = special.find(unit);
        if (index == ryv::CStringView::npos) {
            out_ += unit;
            return;
        }
        out_ += u'\\';
        out_ += letters[index];
    }

    void printOther(Value value) {
        if (value.kind() == Kind::function) {
            const Function& function = *asFunction(value);
            out_ += function.type == FunctionType::lambda ? u"#<function" : u"#<native function";
            if (function.name)
                out_ += u' ' + function.name->name;
        } else if (value.kind() == Kind::file) {
            const File& file = *static_cast<const File*>(value.object());
            out_ += u"#<file";
            out_ += file.file ? u' ' + file.file->name() : ryv::CString(u" closed");
        } else if (value.kind() == Kind::failure) {
            out_ += u"#<error " + static_cast<const Failure*>(value.object())->message;
        } else {
            out_ += u"<" + static_cast<const Opaque*>(value.object())->type->name + u": ";
            printHexadecimal(value.opaqueId());
        }
        out_ += u'>';
    }

    void printHexadecimal(std::uint64_t number) {
        std::array<char, 20> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
        out_ += ryv::fromAscii({digits.data(), end});
    }

    Machine* machine_;
    bool quoted_;
    std::size_t depth_ = 0;
    ryv::CString out_;
};

} // namespace

ryv::CString printed(Machine& machine, Value value, bool quoted) {
    Printer printer(&machine, quoted);
    printer.print(value);
    return printer.take();
}

ryv::CString briefly(Value value) {
    Printer printer(nullptr, true);
    printer.print(value);
    return printer.take();
}

ryv::CString printedReal(double number) {
    std::array<char, 40> digits;
    constexpr int significant = 6;
    const auto end = std::to_chars(
        digits.data(), digits.data() + digits.size(), number, std::chars_format::general, significant)
                         .ptr;
    std::string text(digits.data(), end);
    // "1e+20" and "5" become "1.0e+20" and "5.0"; what is no number ("inf") stays.
    const std::size_t exponent = std::min(text.find('e'), text.size());
    if (text.find('.') == std::string::npos && text.find_first_not_of("-0123456789e+") == std::string::npos)
        text.insert(exponent, ".0");
    return ryv::fromAscii(text);
}

} // namespace drafta::lisp
