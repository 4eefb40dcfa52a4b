#include "base/format.h"
#include "embedded/documents/lisp_arguments.h"
#include "embedded/documents/lisp_functions.h"

namespace drafta {

namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

/// The drawings that a document's LISP has open, by the numbers of their handles.
class OpenDrawings {
public:
    explicit OpenDrawings(LispHost& host) noexcept : host_(host) {}

    Value admit(Interpreter& lisp, std::unique_ptr<ryv::DrawingDatabase> drawing) {
        if (!drawing)
            return {};
        drawings_[++last_] = std::move(drawing);
        return lisp.makeOpaque(u"DRAWING", last_);
    }

    ryv::DrawingDatabase& of(Interpreter& lisp, Value handle) {
        const auto hit = drawings_.find(handle.opaqueId());
        if (hit == drawings_.end())
            throw lisp::LispError(u"not an open drawing: " + lisp.printed(handle));
        return *hit->second;
    }

    void close(Value handle) { drawings_.erase(handle.opaqueId()); }
    LispHost& host() noexcept { return host_; }

private:
    LispHost& host_;
    std::map<std::uint64_t, std::unique_ptr<ryv::DrawingDatabase>> drawings_;
    std::uint64_t last_ = 0;
};

using Drawings = std::shared_ptr<OpenDrawings>;

/// A function of a drawing and further arguments.
template <class Function>
void defineOn(Interpreter& interpreter, const Drawings& drawings, ryv::CStringView name,
    std::size_t arguments, Function function) {
    interpreter.define(name, arguments + 1, arguments + 1,
        [drawings, function](Interpreter& lisp, Arguments given) -> Value {
            return function(lisp, drawings->of(lisp, given[0]), given.subspan(1));
        });
}

ryv::DrawingPoint pointArgument(Interpreter& lisp, Value value) {
    const std::vector<Value> numbers = listArgument(lisp, value);
    if (numbers.size() < 2 || numbers.size() > 3)
        throw lisp::LispError(u"bad point: " + lisp.printed(value));
    return {numberArgument(lisp, numbers[0]), numberArgument(lisp, numbers[1]),
        numbers.size() == 3 ? numberArgument(lisp, numbers[2]) : 0};
}

Value told(Interpreter& lisp, LispHost& host, const ryv::DrawingResult& result) {
    if (!result.ok())
        printProblem(lisp, host, result.problem);
    return lisp.boolean(result.ok());
}

void defineHandles(Interpreter& interpreter, const Drawings& drawings) {
    interpreter.define(u"dwg-open", 1, 1, [drawings](Interpreter& lisp, Arguments arguments) {
        ryv::DrawingResult result;
        LispHost& host = drawings->host();
        const ryv::CString path = host.platform.os.paths->fullPath(pathArgument(lisp, arguments[0]));
        auto drawing = host.platform.host.drawings->open(path, result);
        told(lisp, host, result);
        return drawings->admit(lisp, std::move(drawing));
    });
    interpreter.define(u"dwg-current", 0, 0, [drawings](Interpreter& lisp, Arguments) {
        LispHost& host = drawings->host();
        return drawings->admit(
            lisp, host.platform.host.drawings->ofDocument(host.documents.currentDocument()));
    });
    interpreter.define(u"dwg-close", 1, 1, [drawings](Interpreter&, Arguments arguments) {
        drawings->close(arguments[0]);
        return Value();
    });
    defineOn(interpreter, drawings, u"dwg-save", 0,
        [drawings](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments) {
            return told(lisp, drawings->host(), drawing.save());
        });
    defineOn(interpreter, drawings, u"dwg-file", 0,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments) {
            return lisp.makeString(drawing.fileName());
        });
}

ryv::CStringArray spacesOf(ryv::DrawingDatabase& drawing) {
    ryv::CStringArray names = {u"*Model_Space"};
    if (drawing.layoutCount() > 1)
        names.push_back(u"*Paper_Space");
    for (std::size_t i = 0; i + 2 < drawing.layoutCount(); ++i)
        names.push_back(ryv::format(u"*Paper_Space%d", {i}));
    return names;
}

void defineSpaces(Interpreter& interpreter, const Drawings& drawings) {
    defineOn(interpreter, drawings, u"dwg-spaces", 0,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments) {
            return stringList(lisp, spacesOf(drawing));
        });
    defineOn(interpreter, drawings, u"dwg-space", 1,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments arguments) {
            return lisp.boolean(drawing.setSpace(stringArgument(lisp, arguments[0])));
        });
    defineOn(interpreter, drawings, u"dwg-blocks", 0,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments) {
            return stringList(lisp, drawing.referredBlocks());
        });
    defineOn(interpreter, drawings, u"dwg-first", 1,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments arguments) {
            return lisp.boolean(drawing.firstReference(stringArgument(lisp, arguments[0])));
        });
    defineOn(interpreter, drawings, u"dwg-next", 0,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments) {
            return lisp.boolean(drawing.nextReference());
        });
}

void defineAttributes(Interpreter& interpreter, const Drawings& drawings) {
    defineOn(interpreter, drawings, u"dwg-attributes", 0,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments) {
            lisp::ListBuilder list(lisp);
            for (const ryv::DrawingAttribute& attribute : drawing.attributes()) {
                const Value tag = lisp.makeString(attribute.tag);
                list.add(lisp.cons(tag, lisp.makeString(attribute.value)));
            }
            return list.take();
        });
    defineOn(interpreter, drawings, u"dwg-get", 1,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments arguments) {
            ryv::CString value;
            const bool found = drawing.readAttribute(stringArgument(lisp, arguments[0]), value);
            return found ? lisp.makeString(value) : Value();
        });
    defineOn(interpreter, drawings, u"dwg-set", 2,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments arguments) {
            const ryv::CString tag = stringArgument(lisp, arguments[0]);
            return lisp.boolean(drawing.writeAttribute(tag, stringArgument(lisp, arguments[1])));
        });
    defineOn(interpreter, drawings, u"dwg-add", 4,
        [](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments arguments) {
            const ryv::CString after = stringArgument(lisp, arguments[0]);
            const ryv::CString tag = stringArgument(lisp, arguments[1]);
            const ryv::CString value = stringArgument(lisp, arguments[2]);
            const ryv::DrawingPoint displacement = pointArgument(lisp, arguments[3]);
            return lisp.boolean(drawing.addAttribute(after, tag, value, displacement));
        });
}

void defineInsertion(Interpreter& interpreter, const Drawings& drawings) {
    defineOn(interpreter, drawings, u"dwg-insert", 5,
        [drawings](Interpreter& lisp, ryv::DrawingDatabase& drawing, Arguments arguments) {
            ryv::BlockInsertion insertion;
            insertion.block = stringArgument(lisp, arguments[0]);
            insertion.file = pathArgument(lisp, arguments[1]);
            insertion.position = pointArgument(lisp, arguments[2]);
            const double scale = numberArgument(lisp, arguments[3]);
            insertion.scale = {scale, scale, scale};
            insertion.rotation = numberArgument(lisp, arguments[4]);
            return told(lisp, drawings->host(), drawing.insertBlock(insertion));
        });
}

} // namespace

void defineDrawingFunctions(Interpreter& interpreter, LispHost& host) {
    const auto drawings = std::make_shared<OpenDrawings>(host);
    defineHandles(interpreter, drawings);
    defineSpaces(interpreter, drawings);
    defineAttributes(interpreter, drawings);
    defineInsertion(interpreter, drawings);
}

} // namespace drafta
