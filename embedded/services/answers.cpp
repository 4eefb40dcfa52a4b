#include "embedded/services/answers.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "toolkit/script_text.h"

#include <algorithm>
#include <array>

namespace drafta {

namespace {

constexpr std::array<ryv::CStringView, 6> kinds = {u"message", u"task", u"file", u"form", u"dialog", u"menu"};

ryv::CString keyOf(ryv::CStringView kind, ryv::CStringView name) {
    return ryv::toUpper(kind) + u" " + ryv::toUpper(name);
}

} // namespace

bool Answers::parse(ryv::CStringView text, Answers& answers, ryv::CString& problem) {
    Answers read;
    int number = 0;
    for (const ryv::CString& raw : ryv::split(text, u'\n')) {
        ++number;
        const ryv::CStringView line = ryv::trim(raw);
        if (line.empty() || line.starts_with(u'#'))
            continue;
        const std::size_t blank = line.find(u' ');
        const std::size_t colon = line.find(u':', blank == ryv::CStringView::npos ? 0 : blank);
        const ryv::CStringView kind = line.substr(0, blank);
        const bool known = std::any_of(kinds.begin(), kinds.end(),
            [&](ryv::CStringView other) { return ryv::equalNoCase(kind, other); });
        if (!known || colon == ryv::CStringView::npos) {
            problem = ryv::format(u"line %d: no answer, expected \"message NUMBER: ...\", \"task ID: ...\", "
                                  u"\"file NUMBER: ...\", \"form NAME: ...\", \"dialog NAME: ...\" or "
                                  u"\"menu NAME: ...\"",
                {number});
            return false;
        }
        const ryv::CStringView name = ryv::trim(line.substr(blank, colon - blank));
        read.queues_[keyOf(kind, name)].answers.emplace_back(ryv::trim(line.substr(colon + 1)));
    }
    answers = std::move(read);
    return true;
}

std::optional<ryv::CString> Answers::next(ryv::CStringView kind, ryv::CStringView name) {
    const auto hit = queues_.find(keyOf(kind, name));
    if (hit == queues_.end())
        return std::nullopt;
    Queue& queue = hit->second;
    const std::size_t index = std::min(queue.given++, queue.answers.size() - 1);
    return queue.answers[index];
}

bool Answers::has(ryv::CStringView kind, ryv::CStringView name) const {
    return queues_.contains(keyOf(kind, name));
}

std::optional<FormAnswer> parseFormAnswer(ryv::CStringView text) {
    FormAnswer answer;
    for (const ryv::CString& part : ryv::splitUnquoted(text, u';')) {
        if (part.empty())
            continue;
        const std::size_t equals = part.find(u'=');
        if (equals == ryv::CString::npos)
            return std::nullopt;
        ryv::CStringArray values;
        for (const ryv::CString& value : ryv::splitUnquoted(ryv::CStringView(part).substr(equals + 1), u'|'))
            values.push_back(ryv::unquoted(value));
        answer.emplace_back(ryv::trim(ryv::CStringView(part).substr(0, equals)), std::move(values));
    }
    return answer;
}

} // namespace drafta
