// The package's LISP functions around settings and their dialogs, a wrapper for each. All are true only when
// the call succeeded and gave what is asked for; otherwise the output is left alone. Without a current
// document nothing is called. A dialog that the user cancels gives nil, and so false. An output may be what
// was passed.
#pragma once

#include "platform/host/result_buffer.h"

#include <array>

namespace ryv::lisp {

using GraphicalReferenceValues = std::array<CString, 7>;
using ReferenceTableValues = std::array<CString, 12>;
using ReferenceTextValues = std::array<CString, 5>;

/// Run the dialogs for cross-references shown as graphics, as a table and as text. The values go in and come
/// back as lists of strings, in an order that LISP knows; of the graphical ones exactly 7 have to come back.
bool setUpGraphicalReferences(const GraphicalReferenceValues& values, GraphicalReferenceValues& edited);
bool setUpReferenceTable(const ReferenceTableValues& values, CStringArray& edited);
bool setUpReferenceText(const ReferenceTextValues& values, CStringArray& edited);

/// Defaults of the cross-reference table, each a list in one text with commas: the fields' names, their
/// numbers and their alignments.
bool referenceTableFieldNames(CString& names);
bool referenceTableIndices(CString& indices);
bool referenceTableAlignments(CString& alignments);

/// Default gaps of wire numbers: three numbers in one text with commas.
bool wireNumberGap(CString& gap);

/// Run the dialogs for the suffix lists of components and of wire numbers, on a list in one text.
bool editComponentSuffixes(CStringView suffixes, CString& edited);
bool editWireNumberSuffixes(CStringView suffixes, CString& edited);

/// Lets the user rename the wire properties that a text holds.
bool renameWireProperties(CStringView properties, CString& renamed);

/// Sets up line references: the kind of referencing and a text go in, the kind comes back as chosen.
bool setUpLadderReferences(CStringView kind, CStringView text, CString& result);

/// Sets up X-Y referencing: a text and a list of settings' values go in, the list comes back as edited.
bool setUpGridReferences(CStringView text, const CStringArray& values, CStringArray& edited);

/// Sets up wire layers: one list of a number and of lists of strings.
bool setUpWireLayers(std::int16_t number, const std::vector<CStringArray>& lists);

/// Adds layers to the drawing; the number says of which kind.
bool addLayers(std::int16_t kind, const CStringArray& layers);

/// Sets up wire formats by layer, on the setting's text; gives a list of strings, an empty one
/// when no format is left.
bool setUpWireFormatByLayer(CStringView setting, CStringArray& formats);

/// How LISP judges a catalogue value: a number of its own.
bool checkCatalogValue(CStringView value, std::int16_t& verdict);

/// The gaps of text blocks in line with wires, in drawing units: as they stand, and as they become when the
/// user edits `present`, which is not empty.
bool inlineGap(std::vector<double>& gap);
bool setUpInlineGap(const std::vector<double>& present, std::vector<double>& gap);

/// The path of the drawing file of a block, as LISP finds it in the package's folders.
bool findBlockFile(CStringView block, CString& file);

/// Has LISP tell the user that a block's file was not found.
bool tellBlockFileMissing(CStringView block);

/// Installation and location values that are in use, on the current drawing and in the project. None is a
/// result, too.
bool installationsOnDrawing(CStringArray& values);
bool installationsOfProject(CStringArray& values);
bool locationsOnDrawing(CStringArray& values);
bool locationsOfProject(CStringArray& values);

} // namespace ryv::lisp
