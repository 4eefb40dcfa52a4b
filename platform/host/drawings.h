// Drawings as databases: the spaces of a drawing, the block references in them and their attributes.
#pragma once

#include "platform/host/documents.h"

#include <memory>

namespace ryv {

/// A point or a displacement, in drawing units.
struct DrawingPoint {
    double x = 0;
    double y = 0;
    double z = 0;
};

/// One attribute of a block reference.
struct DrawingAttribute {
    CString tag;
    CString value;
    DrawingPoint position; ///< the insertion point, in the coordinates of the space
};

/// A block to be inserted from a drawing file.
struct BlockInsertion {
    CString block;         ///< the name that the block gets, or has already, in the drawing
    CString file;          ///< the drawing whose model space is the block; not read when the block is there
    DrawingPoint position; ///< in the coordinates of the space
    DrawingPoint scale{1, 1, 1};
    double rotation = 0; ///< radians, against the clock
};

/// How an operation on a drawing ended. The text names the file, for a fault in its content the line too, and
/// the reason; it is fit to be shown to the user, and empty after success.
struct [[nodiscard]] DrawingResult {
    bool succeeded = true;
    CString problem;

    bool ok() const noexcept { return succeeded; }
};

/// One view of a drawing: a current space, and at most one open block reference in it. Names of spaces,
/// blocks and tags are compared without regard to case. Several views of one drawing see each other's changes
/// at once; what one does never closes the reference that another has open. Changes are in memory until
/// save().
class DrawingDatabase {
public:
    virtual ~DrawingDatabase() = default;

    /// The path of the drawing's file; empty for a drawing that has no name yet.
    virtual CString fileName() = 0;

    /// How many layouts the drawing has, the one of model space included.
    virtual std::size_t layoutCount() = 0;

    /// Makes a space current: "*Model_Space", "*Paper_Space" (the paper layout that is, or was last, active),
    /// "*Paper_Space0" and so on (the other paper layouts). False when there is none of that name; the space
    /// and the open reference stay as they were then. Otherwise no reference is open.
    virtual bool setSpace(CStringView name) = 0;

    /// Opens the first reference, in the order of the drawing, of a block in the current space; references
    /// inside blocks do not count. False when there is none; no reference is open then.
    virtual bool firstReference(CStringView block) = 0;

    /// Opens the next reference of the block that firstReference() was last asked for.
    virtual bool nextReference() = 0;

    virtual bool hasOpenReference() = 0;
    virtual void closeReference() = 0;

    /// The names of the blocks that are referred to in the current space, each once, in the order in which
    /// they come first.
    virtual CStringArray referredBlocks() = 0;

    /// The attributes of the open reference in their order; empty when none is open.
    virtual std::vector<DrawingAttribute> attributes() = 0;

    /// Of several attributes of one tag the first counts. All are false when no reference is open or it has
    /// no such attribute; `value` is left alone then. Line breaks and other control units cannot be written
    /// (false).
    virtual bool hasAttribute(CStringView tag) = 0;
    virtual bool readAttribute(CStringView tag, CString& value) = 0;
    virtual bool writeAttribute(CStringView tag, CStringView value) = 0;

    /// Adds an attribute behind the one with tag `after`, displaced from it and otherwise of its looks. With
    /// `after` empty the reference must have no attribute; the new one is then the first, invisible, at the
    /// reference's insertion point, `displacement` ignored. False when no reference is open, there is no
    /// attribute `after`, `tag` is taken already, empty or holds blanks, or `value` cannot be written.
    virtual bool addAttribute(
        CStringView after, CStringView tag, CStringView value, DrawingPoint displacement) = 0;

    /// Inserts a reference of a block into the current space, with an attribute for each attribute definition
    /// of the block that is not constant, and opens it. A block that the drawing does not define yet is
    /// defined first, from the model space of the file.
    virtual DrawingResult insertBlock(const BlockInsertion& insertion) = 0;

    /// Writes the drawing back to its file, atomically; fails, and leaves the file alone, when another
    /// process wrote it since it was read. A drawing that was not changed is not written. In a view of a
    /// document the document is saved, with all that was changed in it.
    virtual DrawingResult save() = 0;
};

/// Where databases come from. A view may outlive this object's document; it then has no space and no
/// reference any more and fails to save.
class HostDrawings {
public:
    virtual ~HostDrawings() = default;

    /// A view of the drawing in a file, in model space, without showing it. When the file is open in a
    /// document the view is one of that document, so that a later save of the document cannot undo what was
    /// written. Null when the file cannot be read as a drawing; `result` says why.
    virtual std::unique_ptr<DrawingDatabase> open(CStringView path, DrawingResult& result) = 0;

    /// A view of the drawing in a document; null when there is no such document.
    virtual std::unique_ptr<DrawingDatabase> ofDocument(DocumentId document) = 0;

    /// A view of the drawing that LISP code knows by a number; null when no drawing has it. The number of a
    /// document's drawing is the number of the document.
    virtual std::unique_ptr<DrawingDatabase> byNumber(std::int32_t number) = 0;
};

/// No drawing can be opened.
class NullHostDrawings final : public HostDrawings {
public:
    std::unique_ptr<DrawingDatabase> open(CStringView path, DrawingResult& result) override {
        result = {false, CString(path) + u": there is no drawing database"};
        return nullptr;
    }
    std::unique_ptr<DrawingDatabase> ofDocument(DocumentId) override { return nullptr; }
    std::unique_ptr<DrawingDatabase> byNumber(std::int32_t) override { return nullptr; }
};

} // namespace ryv
