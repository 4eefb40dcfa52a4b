// A file of answers, for runs that nobody watches: each line names a question and says what to answer.
//
//     # the settings block could not be inserted
//     message 268: ok
//     task RyvPageMan.SubfolderNameExists: 1001
//     file 140: /home/u/new.kqp
//     form kq_descriptions: line1="Pump station; north"; order=B|A
//     form kq_sort: cancel
//     dialog NewProject: name=Demo; folder="\home\u"; ok
//     menu project: 217
//
// Several answers to one question are given in their order, and the last one again and again.
#pragma once

#include "base/strings.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace drafta {

class Answers {
public:
    /// Reads the text of a file. False, with `problem` filled in ("line 3: ..."), at the first line that is
    /// no answer; `answers` is left alone then.
    static bool parse(ryv::CStringView text, Answers& answers, ryv::CString& problem);

    /// The answer to a question, as it stands behind the colon; nothing when the file has none for it. `kind`
    /// is "message", "task", "file", "form", "dialog" or "menu"; names are compared without regard to case.
    std::optional<ryv::CString> next(ryv::CStringView kind, ryv::CStringView name);

    /// Whether there is an answer to a question.
    bool has(ryv::CStringView kind, ryv::CStringView name) const;

private:
    struct Queue {
        std::vector<ryv::CString> answers;
        std::size_t given = 0;
    };
    std::map<ryv::CString, Queue> queues_; // by folded "KIND NAME"
};

/// An answer to a form, taken apart: the fields with their values. Fields are parted by ";", a name from its
/// value by "=", the values of a list by "|"; what stands between double quotes counts as text, a doubled one
/// inside as one. Nothing when a field has no "=".
using FormAnswer = std::vector<std::pair<ryv::CString, ryv::CStringArray>>;
std::optional<FormAnswer> parseFormAnswer(ryv::CStringView text);

} // namespace drafta
