// The package's help.
#pragma once

#include "base/strings.h"

namespace ryv {

class Help {
public:
    virtual ~Help() = default;

    /// Opens a topic by its name ("project_manager_dialog"); nothing happens when there is no help.
    virtual void showTopic(CStringView topic) = 0;
};

/// There is no help.
class NullHelp final : public Help {
public:
    void showTopic(CStringView) override {}
};

} // namespace ryv
