#include "embedded/documents/command_stack.h"

#include "base/fold.h"

#include <algorithm>

namespace drafta {

namespace {

// Global names are registered with and without "_" in front; both mean the same.
ryv::CStringView bare(ryv::CStringView globalName) noexcept {
    return globalName.starts_with(u'_') ? globalName.substr(1) : globalName;
}

bool isNamed(const ryv::HostCommand& command, ryv::CStringView group, ryv::CStringView globalName) {
    return ryv::equalNoCase(command.group, group) &&
           ryv::equalNoCase(bare(command.globalName), bare(globalName));
}

} // namespace

ryv::CStringView withoutMarks(ryv::CStringView typed) noexcept {
    const std::size_t start = typed.find_first_not_of(u"'_.");
    return start == ryv::CStringView::npos ? ryv::CStringView() : typed.substr(start);
}

bool CommandStack::add(ryv::HostCommand command) {
    if (command.group.empty() || bare(command.globalName).empty() || !command.handler)
        return false;
    const bool taken = std::any_of(commands_.begin(), commands_.end(),
        [&](const auto& other) { return isNamed(*other, command.group, command.globalName); });
    if (taken)
        return false;
    commands_.push_back(std::make_shared<const ryv::HostCommand>(std::move(command)));
    return true;
}

bool CommandStack::removeGroup(ryv::CStringView group) {
    return std::erase_if(
               commands_, [&](const auto& command) { return ryv::equalNoCase(command->group, group); }) != 0;
}

bool CommandStack::remove(ryv::CStringView group, ryv::CStringView globalName) {
    return std::erase_if(
               commands_, [&](const auto& command) { return isNamed(*command, group, globalName); }) != 0;
}

std::shared_ptr<const ryv::HostCommand> CommandStack::find(ryv::CStringView typed) const {
    const ryv::CStringView name = withoutMarks(typed);
    const ryv::CStringView marks = typed.substr(0, typed.size() - name.size());
    const bool globalOnly = marks.find(u'_') != ryv::CStringView::npos;
    for (auto command = commands_.rbegin(); command != commands_.rend(); ++command)
        if (ryv::equalNoCase(bare((*command)->globalName), name) ||
            (!globalOnly && ryv::equalNoCase((*command)->localName, name)))
            return *command;
    return nullptr;
}

} // namespace drafta
