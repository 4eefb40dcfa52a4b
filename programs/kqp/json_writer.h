// JSON, written straight into an output: nothing is kept but the kinds of the values that are open, so the
// depth of nesting costs a few bytes a level and no stack.
#pragma once

#include "base/strings.h"
#include "programs/kqp/terminal/output.h"

#include <string_view>
#include <vector>

namespace kqp {

/// The caller opens and closes in turn, and gives a key in front of every member of an object. The result is
/// UTF-8.
class JsonWriter {
public:
    /// How the members of an object or array are set: side by side, or each on a line of its own, indented.
    enum class Layout : unsigned char { oneLine, lines };

    /// Beyond this many levels the indentation grows no further, so that deep input has no quadratic output.
    static constexpr std::size_t deepestIndent = 32;

    /// `out` outlives the writer.
    explicit JsonWriter(Output& out) : out_(out) {}

    void beginObject(Layout layout) { begin('{', layout); }
    void beginArray(Layout layout) { begin('[', layout); }
    /// Closes the innermost object or array.
    void end();

    void key(ryv::CStringView name);
    void text(ryv::CStringView value);
    void number(long long value);
    void boolean(bool value);
    void null();

private:
    struct Level {
        char closing;
        Layout layout;
        bool empty;
    };

    void begin(char opening, Layout layout);
    void separate();
    void beforeValue();
    void breakLine();
    void quote(ryv::CStringView value);

    Output& out_;
    std::vector<Level> open_;
    std::size_t indent_ = 0;
    bool keyGiven_ = false;
};

} // namespace kqp
