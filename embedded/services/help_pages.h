// The help: a folder with a page in Markdown for each topic, and in it a folder for each other language.
#pragma once

#include "platform/os/files.h"
#include "platform/services/help.h"
#include "siblings/byte_buffer.h"

#include <functional>

namespace drafta {

class HelpPages final : public ryv::Help {
public:
    /// `folder` is a module path and may be missing. Without a viewer pages are printed as text.
    HelpPages(ryv::Files& files, ryv::CString folder, std::function<void(ryv::CStringView)> print)
        : files_(files), folder_(std::move(folder)), print_(std::move(print)) {}

    /// Who shows pages from now on, by the module path of the page's file.
    void setViewer(std::function<void(ryv::CStringView file)> viewer) { viewer_ = std::move(viewer); }

    /// In the language that is spoken, else in English. A topic that there is no page of is told in one line.
    void showTopic(ryv::CStringView topic) override;

private:
    bool readPage(ryv::CStringView topic, ryv::CString& file, ryv::ByteBuffer& bytes) const;

    ryv::Files& files_;
    ryv::CString folder_;
    std::function<void(ryv::CStringView)> print_;
    std::function<void(ryv::CStringView)> viewer_;
};

/// Markdown as it is read on a terminal: without the targets of links.
ryv::CString withoutLinkTargets(ryv::CStringView text);

} // namespace drafta
