// The host's editor: system variables and the events of the application.
#pragma once

#include "platform/host/editor.h"

#include <functional>
#include <map>
#include <vector>

namespace drafta {

class Editor final : public ryv::HostEditor {
public:
    /// Makes a system variable. `read` gives its value when it is asked for; without `read` the value is kept
    /// here and can be set.
    using Read = std::function<ryv::SystemVariable()>;
    void defineVariable(ryv::CStringView name, Read read);
    /// `write` takes a new value of the variable's type on, or refuses it with false.
    using Write = std::function<bool(const ryv::SystemVariable&)>;
    void defineVariable(ryv::CStringView name, Read read, Write write);
    void defineVariable(ryv::CStringView name, ryv::SystemVariable value);

    /// Where takeUserBreak() gets its answer from.
    void setBreakSource(std::function<bool()> source) { takeBreak_ = std::move(source); }

    /// Asks the observers whether the application may quit; false when one has a veto.
    bool mayQuit();
    void tellSaved(ryv::CStringView path);

    bool systemVariable(ryv::CStringView name, ryv::SystemVariable& value) override;
    bool setSystemVariable(ryv::CStringView name, const ryv::SystemVariable& value) override;
    bool takeUserBreak() override { return takeBreak_ && takeBreak_(); }
    void add(ryv::EditorObserver& observer) override;
    void remove(ryv::EditorObserver& observer) override;

private:
    struct Variable {
        ryv::CString name;
        ryv::SystemVariable value;
        Read read;
        Write write;
    };
    template <class Notice>
    void tell(const Notice& notice);

    std::map<ryv::CString, Variable> variables_; // by upper-case name
    std::vector<ryv::EditorObserver*> observers_;
    std::function<bool()> takeBreak_;
};

} // namespace drafta
