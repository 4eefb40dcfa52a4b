#include "embedded/palettes/workspace_xml.h"

#include "embedded/palettes/workspace_text.h"
#include "embedded/services/xml_place.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace drafta {

namespace {

using ryv::WorkspaceNode;

template <class Number>
std::string printNumber(Number number) {
    std::array<char, 64> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

template <class Number>
std::optional<Number> parseNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

void append(pugi::xml_node element, const WorkspaceNode::Attribute& attribute) {
    constexpr const char* types[] = {"integer", "real", "string"}; // in the order of the variant
    pugi::xml_node written = element.append_child(types[attribute.value.index()]);
    written.append_attribute("name") = escapeText(attribute.name).c_str();
    std::string value;
    if (const auto* const integer = std::get_if<std::int32_t>(&attribute.value))
        value = printNumber(*integer);
    else if (const auto* const real = std::get_if<double>(&attribute.value))
        value = printNumber(*real);
    else
        value = escapeText(std::get<ryv::CString>(attribute.value));
    written.append_attribute("value") = value.c_str();
}

struct Writer final : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }
};

void set(WorkspaceNode& node, ryv::CStringView name, const WorkspaceNode::Value& value) {
    if (const auto* const integer = std::get_if<std::int32_t>(&value))
        node.setInteger(name, *integer);
    else if (const auto* const real = std::get_if<double>(&value))
        node.setReal(name, *real);
    else
        node.setString(name, std::get<ryv::CString>(value));
}

bool isNode(pugi::xml_node element) {
    return std::string_view(element.name()) == "node";
}

using Nodes = std::vector<std::shared_ptr<const WorkspaceNode>>;

/// Each step gives false when it has met something that cannot be read, which `problem` tells then.
class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    bool read(Nodes& nodes);
    ryv::CString problem;

private:
    bool fail(const char16_t* reason, std::ptrdiff_t offset);
    bool fail(const char16_t* reason, pugi::xml_node element) { return fail(reason, element.offset_debug()); }
    bool readText(pugi::xml_node element, const char* name, ryv::CString& text);
    template <class Number>
    bool readNumber(pugi::xml_node element, Number& number);
    bool readAttribute(pugi::xml_node element, WorkspaceNode& node);
    bool checkCounts(pugi::xml_node element);
    bool readNodes(pugi::xml_node root, Nodes& nodes);
    bool readBelow();

    std::string_view bytes_;
    std::vector<std::pair<pugi::xml_node, WorkspaceNode*>>
        pending_; // nodes whose content is still to be read
};

bool Reader::fail(const char16_t* reason, std::ptrdiff_t offset) {
    problem = problemAt(bytes_, offset, reason);
    return false;
}

bool Reader::readText(pugi::xml_node element, const char* name, ryv::CString& text) {
    const pugi::xml_attribute attribute = element.attribute(name);
    std::optional<ryv::CString> read = unescapeText(attribute.value());
    if (!attribute || !read)
        return fail(u"a text is missing or cannot be read", element);
    text = *std::move(read);
    return true;
}

template <class Number>
bool Reader::readNumber(pugi::xml_node element, Number& number) {
    const std::optional<Number> read = parseNumber<Number>(element.attribute("value").value());
    if (!read)
        return fail(u"a number is missing or cannot be read", element);
    number = *read;
    return true;
}

bool Reader::readAttribute(pugi::xml_node element, WorkspaceNode& node) {
    const std::string_view type = element.name();
    WorkspaceNode::Value value;
    bool isRead = false;
    if (type == "integer")
        isRead = readNumber(element, value.emplace<std::int32_t>());
    else if (type == "real")
        isRead = readNumber(element, value.emplace<double>());
    else if (type == "string")
        isRead = readText(element, "value", value.emplace<ryv::CString>());
    else
        fail(u"an element is not known", element);
    ryv::CString name;
    if (!isRead || !readText(element, "name", name))
        return false;
    set(node, name, value);
    return true;
}

/// Beforehand, since looking each attribute up among so many would take minutes.
bool Reader::checkCounts(pugi::xml_node element) {
    std::size_t nodes = 0;
    std::size_t attributes = 0;
    for (const pugi::xml_node child : element.children())
        if (++(isNode(child) ? nodes : attributes);
            nodes > mostWorkspaceNodes || attributes > mostWorkspaceAttributes)
            return fail(u"there are too many of the same kind", child);
    return true;
}

bool Reader::readNodes(pugi::xml_node root, Nodes& nodes) {
    if (!checkCounts(root))
        return false;
    for (const pugi::xml_node element : root.children()) {
        ryv::CString name;
        if (!isNode(element))
            return fail(u"an element is not known", element);
        if (!readText(element, "name", name))
            return false;
        auto node = std::make_shared<WorkspaceNode>(std::move(name));
        pending_.emplace_back(element, node.get());
        nodes.push_back(std::move(node));
    }
    while (!pending_.empty())
        if (!readBelow())
            return false;
    return true;
}

bool Reader::readBelow() {
    const auto [element, node] = pending_.back();
    pending_.pop_back();
    if (!checkCounts(element))
        return false;
    for (const pugi::xml_node child : element.children()) {
        ryv::CString name;
        if (!isNode(child) ? !readAttribute(child, *node) : !readText(child, "name", name))
            return false;
        if (isNode(child))
            pending_.emplace_back(child, &node->addChild(name));
    }
    return true;
}

bool Reader::read(Nodes& nodes) {
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_buffer(bytes_.data(), bytes_.size(), pugi::parse_default, pugi::encoding_utf8);
    const pugi::xml_node root = document.document_element();
    const bool isOurs = std::string_view(root.name()) == "workspace" &&
                        std::string_view(root.attribute("version").value()) == "1";
    if (!result)
        return fail(u"the file is damaged", result.offset);
    return isOurs ? readNodes(root, nodes) : fail(u"this is no workspace of this version", root);
}

} // namespace

std::string printWorkspace(const std::vector<std::shared_ptr<const WorkspaceNode>>& nodes) {
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("workspace");
    root.append_attribute("version") = 1;
    std::vector<std::pair<const WorkspaceNode*, pugi::xml_node>> pending;
    const auto enter = [&pending](const WorkspaceNode& node, pugi::xml_node parent) {
        pugi::xml_node element = parent.append_child("node");
        element.append_attribute("name") = escapeText(node.name()).c_str();
        pending.emplace_back(&node, element);
    };
    for (const auto& node : nodes)
        enter(*node, root);
    while (!pending.empty()) {
        const auto [node, element] = pending.back();
        pending.pop_back();
        for (const WorkspaceNode::Attribute& attribute : node->attributes())
            append(element, attribute);
        for (const auto& child : node->children())
            enter(*child, element);
    }
    Writer writer;
    // Without indentation, which grows with the square of the depth.
    document.save(writer, "", pugi::format_default, pugi::encoding_utf8);
    return std::move(writer.text);
}

bool parseWorkspace(std::string_view bytes, std::vector<std::shared_ptr<const ryv::WorkspaceNode>>& nodes,
    ryv::CString& problem) {
    Reader reader(bytes);
    Nodes read;
    const bool isRead = reader.read(read);
    nodes = isRead ? std::move(read) : Nodes();
    problem = reader.problem;
    return isRead;
}

} // namespace drafta
