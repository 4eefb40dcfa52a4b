#include "embedded/services/task_dialog_file.h"

#include "base/encoding.h"
#include "embedded/services/xml_place.h"

#include <pugixml.hpp>

#include <algorithm>
#include <set>

namespace drafta {

namespace {

/// UTF-8 with every run of white space made one blank.
void appendWords(std::string& text, std::string_view words) {
    for (const char letter : words) {
        const bool isSpace = letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
        if (!isSpace)
            text += letter;
        else if (!text.empty() && text.back() != ' ' && text.back() != '\n')
            text += ' ';
    }
}

void dropBlankAtEnd(std::string& text) {
    if (text.ends_with(' '))
        text.pop_back();
}

ryv::CString textOf(pugi::xml_node element) {
    std::string text;
    for (const pugi::xml_node part : element.children()) {
        if (std::string_view(part.name()) == "LineBreak") {
            dropBlankAtEnd(text);
            text += '\n';
        } else {
            appendWords(text, part.value());
        }
    }
    dropBlankAtEnd(text);
    return ryv::decodeUtf8(text);
}

ryv::TaskDialogRequest dialogOf(pugi::xml_node element) {
    ryv::TaskDialogRequest dialog;
    dialog.id = ryv::decodeUtf8(element.attribute("Id").value());
    dialog.title = ryv::decodeUtf8(element.attribute("Title").value());
    dialog.defaultButton = element.attribute("DefaultButton").as_int();
    dialog.instruction = textOf(element.child("Instruction"));
    dialog.content = textOf(element.child("Content"));
    for (const pugi::xml_node button : element.children("Button"))
        dialog.buttons.push_back({button.attribute("Id").as_int(), textOf(button)});
    return dialog;
}

bool isComplete(const ryv::TaskDialogRequest& dialog) {
    const bool hasButtonTexts = std::none_of(dialog.buttons.begin(), dialog.buttons.end(),
        [](const ryv::TaskDialogButton& button) { return button.id == 0 || button.text.empty(); });
    const bool hasDefault = std::any_of(dialog.buttons.begin(), dialog.buttons.end(),
        [&dialog](const ryv::TaskDialogButton& button) { return button.id == dialog.defaultButton; });
    return !dialog.id.empty() && !dialog.title.empty() && !dialog.instruction.empty() && hasButtonTexts &&
           hasDefault;
}

} // namespace

bool parseTaskDialogs(
    std::string_view bytes, std::vector<ryv::TaskDialogRequest>& dialogs, ryv::CString& problem) {
    dialogs.clear();
    problem.clear();
    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer(
        bytes.data(), bytes.size(), pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8);
    const pugi::xml_node root = document.child("TaskDialogs");
    if (!result)
        problem = problemAt(bytes, result.offset, u"the file is damaged");
    else if (!root)
        problem = u"there are no task dialogs in it";
    else if (!ryv::isValidUtf8(bytes))
        problem = u"the file is not UTF-8";
    std::vector<ryv::TaskDialogRequest> read;
    std::set<ryv::CString> ids;
    for (const pugi::xml_node element : root.children("TaskDialog")) {
        if (!problem.empty())
            break; // finding the line costs the whole file
        read.push_back(dialogOf(element));
        const bool isThere = !ids.insert(read.back().id).second;
        if (isThere || !isComplete(read.back()))
            problem = problemAt(bytes, element.offset_debug(),
                isThere ? u"the task dialog is there twice" : u"the task dialog is not complete");
    }
    if (problem.empty())
        dialogs = std::move(read);
    return problem.empty();
}

} // namespace drafta
