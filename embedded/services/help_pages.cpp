#include "embedded/services/help_pages.h"

#include "base/encoding.h"
#include "base/format.h"
#include "embedded/services/host_texts.h"
#include "resources/language.h"
#include "siblings/file_content.h"

#include <algorithm>

namespace drafta {

namespace {

/// A topic is a name, and leads to no other folder.
bool isTopic(ryv::CStringView name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char16_t unit) {
        return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'_' ||
               unit == u'-';
    });
}

} // namespace

void HelpPages::showTopic(ryv::CStringView topic) {
    ryv::CString file;
    ryv::ByteBuffer bytes;
    if (!isTopic(topic) || !readPage(topic, file, bytes))
        print_(ryv::format(hostText(u"\nThere is no help on %s.\n"), {topic}));
    else if (viewer_)
        viewer_(file);
    else
        print_(u"\n" + withoutLinkTargets(ryv::decodeUtf8(bytes.view())));
}

bool HelpPages::readPage(ryv::CStringView topic, ryv::CString& file, ryv::ByteBuffer& bytes) const {
    const ryv::CString name = u'\\' + ryv::CString(topic) + u".md";
    const ryv::CString translated = folder_ + u'\\' + ryv::CString(ryv::codeOf(ryv::language()));
    ryv::Fingerprint fingerprint;
    for (const ryv::CString& folder : {translated, folder_}) {
        file = folder + name;
        if (ryv::readWholeFile(files_, file, bytes, fingerprint).ok())
            return true;
    }
    return false;
}

ryv::CString withoutLinkTargets(ryv::CStringView text) {
    ryv::CString plain;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t middle = text[at] == u'[' ? text.find(u"](", at) : ryv::CStringView::npos;
        const std::size_t end = middle == ryv::CStringView::npos ? middle : text.find(u')', middle);
        if (end == ryv::CStringView::npos ||
            text.substr(at, end - at).find(u'\n') != ryv::CStringView::npos) {
            plain += text[at++];
            continue;
        }
        plain += text.substr(at + 1, middle - at - 1);
        at = end + 1;
    }
    return plain;
}

} // namespace drafta
