#include "programs/kqp/show_json.h"

#include "base/text.h"
#include "programs/kqp/json_writer.h"

#include <vector>

namespace kqp {

namespace {

using Layout = JsonWriter::Layout;

void writeTexts(const auto& texts, Layout layout, JsonWriter& json) {
    json.beginArray(layout);
    for (const ryv::CStringView text : texts)
        json.text(text);
    json.end();
}

void writeMisc(const ryv::RyvPmMiscProjSettings& misc, JsonWriter& json) {
    json.beginObject(Layout::lines);
    for (const auto& [index, value] : misc.values()) {
        json.key(ryv::toText(index));
        json.text(value);
    }
    json.end();
}

void writeSettings(const ryv::RyvCfgDrawingSettings& settings, JsonWriter& json) {
    json.beginObject(Layout::lines);
    for (int index = 0; index <= ryv::RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        ryv::CString name;
        ryv::RyvCfgDrawingSettings::getKQ_MTagForIndex(index, name);
        json.key(name);
        if (const ryv::CString* const value = settings.find(index))
            json.text(*value);
        else
            json.null();
    }
    json.end();
}

void writeDrawing(const ryv::RyvPrmFileDetails& drawing, JsonWriter& json) {
    json.beginObject(Layout::oneLine);
    json.key(u"type");
    json.text(u"drawing");
    json.key(u"file");
    json.text(drawing.getFileName());
    json.key(u"id");
    json.number(drawing.getFileId());
    json.key(u"description1");
    json.text(drawing.getDescription1());
    json.key(u"description2");
    json.text(drawing.getDescription2());
    json.key(u"descriptions");
    writeTexts(drawing.getDescriptions(), Layout::oneLine, json);
    json.key(u"reference");
    json.boolean(drawing.isReferenceOnly());
    json.end();
}

/// Leaves the subfolder and its list of items open.
void beginSubfolder(const ryv::RyvPrmSubfolder& subfolder, JsonWriter& json) {
    json.beginObject(Layout::oneLine);
    json.key(u"type");
    json.text(u"subfolder");
    json.key(u"name");
    json.text(subfolder.getName());
    json.key(u"items");
    json.beginArray(Layout::lines);
}

/// The tree, without recursion: its depth comes from the file.
class TreeWriter {
public:
    TreeWriter(const ryv::RyvPrmItems& top, JsonWriter& json) : json_(json) { levels_.push_back({top, 0}); }

    void write() {
        json_.beginArray(Layout::lines);
        while (!levels_.empty()) {
            if (Level& level = levels_.back(); level.next == level.items.size())
                leave();
            else
                writeItem(level.items[level.next++].get());
        }
    }

private:
    struct Level {
        const ryv::RyvPrmItems& items;
        std::size_t next;
    };

    void writeItem(const ryv::RyvPrmItem* item) {
        if (const ryv::RyvPrmFileDetails* const drawing = ryv::asFileDetails(item)) {
            writeDrawing(*drawing, json_);
        } else if (const ryv::RyvPrmSubfolder* const subfolder = ryv::asSubfolder(item)) {
            beginSubfolder(*subfolder, json_);
            levels_.push_back({subfolder->getItems(), 0});
        }
    }

    void leave() {
        json_.end();
        levels_.pop_back();
        if (!levels_.empty())
            json_.end(); // the subfolder around the list
    }

    JsonWriter& json_;
    std::vector<Level> levels_;
};

} // namespace

void showJson(const ShownProject& shown, Output& out) {
    JsonWriter json(out);
    json.beginObject(Layout::lines);
    json.key(u"project");
    json.text(shown.path);
    json.key(u"name");
    json.text(shown.name());
    json.key(u"encoding");
    json.text(ryv::fromAscii(ryv::encodingName(shown.encoding)));
    json.key(u"descriptions");
    writeTexts(shown.project.getProjDescriptions(), Layout::lines, json);
    json.key(u"misc");
    writeMisc(shown.project.getMiscProjSettings(), json);
    json.key(u"settings");
    writeSettings(shown.project.getProjDefKQMVals(), json);
    json.key(u"items");
    TreeWriter(shown.project.getProjFileDetails(), json).write();
    json.end();
    out.write("\n");
}

} // namespace kqp
