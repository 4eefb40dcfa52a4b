// The host's editor: its system variables, the break key, and what happens in it.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <variant>

namespace ryv {

/// The value of a system variable, in the type that the variable has.
using SystemVariable = std::variant<std::int32_t, double, CString>;

/// Hears of the editor, on the main thread; what it does not want to hear it does not override.
class EditorObserver {
public:
    /// The application is about to quit. Setting `veto` to true keeps it running; it may be true already, and
    /// is never set back.
    virtual void beginQuit(bool& /*veto*/) {}

    /// A drawing was saved; `path` is the file that was actually written.
    virtual void saveComplete(CStringView /*path*/) {}

    /// A system variable has its new value.
    virtual void systemVariableChanged(CStringView /*name*/) {}

protected:
    ~EditorObserver() = default;
};

class HostEditor {
public:
    virtual ~HostEditor() = default;

    /// The value of a system variable, found without regard to case. False, `value` left alone, when there is
    /// none of that name.
    virtual bool systemVariable(CStringView name, SystemVariable& value) = 0;

    /// Sets a system variable. False when there is none of that name, it cannot be set, or the value is of
    /// another type or out of its range.
    virtual bool setSystemVariable(CStringView name, const SystemVariable& value) = 0;

    /// Whether the user has pressed the break key since the last call; asking clears it.
    virtual bool takeUserBreak() = 0;

    /// Observers are not owned, hear the newest first, and take themselves off before they end.
    virtual void add(EditorObserver& observer) = 0;
    virtual void remove(EditorObserver& observer) = 0;
};

/// No system variable, and nothing happens.
class NullHostEditor : public HostEditor {
public:
    bool systemVariable(CStringView, SystemVariable&) override { return false; }
    bool setSystemVariable(CStringView, const SystemVariable&) override { return false; }
    bool takeUserBreak() override { return false; }
    void add(EditorObserver&) override {}
    void remove(EditorObserver&) override {}
};

} // namespace ryv
