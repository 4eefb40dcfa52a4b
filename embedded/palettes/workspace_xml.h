// The workspace's nodes as XML:
//
//     <workspace version="1">
//     <node name="PALETTESET">
//     <string name="TOOLID" value="..."/>
//     <integer name="..." value="-1"/>
//     <real name="..." value="0.25"/>
//     <node name="..."/>
//     </node>
//     </workspace>
//
// Names and strings are escaped (workspace_text.h), so any text survives; a real has as many digits as bring
// it back exactly.
#pragma once

#include "platform/host/workspace_node.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace drafta {

/// What one workspace or node may hold; an operation on a node looks through all of them. Depth does not
/// matter to either function.
constexpr std::size_t mostWorkspaceNodes = 1000;      ///< directly in it
constexpr std::size_t mostWorkspaceAttributes = 1000; ///< of it

std::string printWorkspace(const std::vector<std::shared_ptr<const ryv::WorkspaceNode>>& nodes);

/// False, with the line and the reason in `problem` and no nodes, when the bytes are not what
/// printWorkspace() writes, or hold more than the above: half a layout is none.
bool parseWorkspace(std::string_view bytes, std::vector<std::shared_ptr<const ryv::WorkspaceNode>>& nodes,
    ryv::CString& problem);

} // namespace drafta
