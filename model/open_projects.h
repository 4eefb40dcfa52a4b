// The one question that the model asks of whoever keeps the open projects.
#pragma once

namespace ryv {

class RyvPrmProject;

class OpenProjects {
public:
    /// The active project, or null when there is none or it is not open.
    virtual RyvPrmProject* getActiveProject() const = 0;

protected:
    ~OpenProjects() = default;
};

/// Says who keeps the open projects (not owned); null for nobody. Main thread only, as is activeProject().
void setOpenProjects(const OpenProjects* projects) noexcept;

/// The active project of whoever was set last, or null.
RyvPrmProject* activeProject();

} // namespace ryv
