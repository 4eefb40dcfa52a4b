#include "resources/creation_message_numbers.h"

#include "resources/catalogue.h"

namespace ryv::german {

namespace {

// clang-format off
constexpr Message texts[] = {
    {message::newProjectTitle, u"Neues Projekt"},
    {message::newProjectName, u"&Name"},
    {message::newProjectFolder, u"&Ordner"},
    {message::newProjectBrowseFolder, u"&Durchsuchen..."},
    {message::newProjectOwnFolder, u"In einem &eigenen Ordner dieses Namens anlegen"},
    {message::newProjectSettings, u"Ein&stellungen kopieren von"},
    {message::newProjectBrowseSettings, u"D&urchsuchen..."},
    {message::newProjectLines, u"Beschreibung"},
    {message::newProjectEditLines, u"&Beschreibungszeilen..."},
    {message::newProjectProperties, u"Anschließend die Ei&genschaften des Projekts zeigen"},
    {message::newProjectPath, u"Projektdatei"},
    {message::newProjectChooseFolder, u"Ordner des neuen Projekts"},
    {message::newProjectChooseSettings, u"Projekt, dessen Einstellungen kopiert werden"},
    {message::newProjectSettingsHint, u"Leer: die des aktiven Projekts"},
    {message::newProjectValue9, u"&Wert 9"},
    {message::newProjectValue9Hint,
        u"Sonstige Einstellung 9, für das Paket geführt. Leer: die der kopierten Einstellungen"},
    {message::newProjectNameMissing, u"Geben Sie einen Namen für das neue Projekt ein."},
    {message::newProjectExists,
        u"Es gibt bereits eine Datei oder einen Ordner dieses Namens:\n%s\n\nWählen Sie einen anderen Namen."},
    {message::newProjectPlaceInvalid,
        u"Das Projekt kann an diesem Ort nicht angelegt werden:\n%s\n\n"
        u"Geben Sie den vollständigen Pfad eines Ordners ein, ohne Zeichen, die in Dateinamen nicht vorkommen "
        u"dürfen."},
    {message::newProjectSettingsMissing,
        u"Es gibt keine Projektdatei, aus der die Einstellungen kopiert werden können:\n%s\n\n"
        u"Wählen Sie eine andere, oder leeren Sie das Feld, um das aktive Projekt zu verwenden."},
    {message::newProjectNoSource,
        u"Es ist kein Projekt aktiv. Geben Sie die Projektdatei ein, aus der die Einstellungen kopiert werden "
        u"sollen."},
    {message::newProjectFolderNotMade, u"Der Ordner\n%s\nkann nicht angelegt werden: %s."},
    {message::newProjectNotRead,
        u"Die Einstellungen können nicht kopiert werden. Die Projektdatei\n%s\nkann nicht gelesen werden: %s."},
    {message::newProjectNotWritten, u"Die Projektdatei\n%s\nkann nicht geschrieben werden: %s."},
    {message::newProjectNotOpened, u"Das neue Projekt wurde angelegt, kann aber nicht geöffnet werden:\n%s."},
    {message::newDrawingTitle, u"Neue Zeichnung"},
    {message::newDrawingName, u"Datei&name"},
    {message::newDrawingFolder, u"&Ordner"},
    {message::newDrawingBrowseFolder, u"D&urchsuchen..."},
    {message::newDrawingTemplate, u"&Vorlage"},
    {message::newDrawingBrowseTemplate, u"Durchsu&chen..."},
    {message::newDrawingDescription1, u"Beschreibung &1"},
    {message::newDrawingDescription2, u"Beschreibung &2"},
    {message::newDrawingDescription3, u"Beschreibung &3"},
    {message::newDrawingReferenceOnly, u"Nur als &Referenz"},
    {message::newDrawingProperties, u"Anschließend die Ei&genschaften der Zeichnung zeigen"},
    {message::newDrawingPath, u"Zeichnungsdatei"},
    {message::newDrawingChooseFolder, u"Ordner der neuen Zeichnung"},
    {message::newDrawingChooseTemplate, u"Vorlage der neuen Zeichnung"},
    {message::newDrawingTemplateHint, u"Leer: die übliche Vorlage des Programms"},
    {message::codesPanelTitle, u"Kennzeichen"},
    {message::codesPanelProject, u"&Projekt"},
    {message::codesPanelInstallation, u"An&lage"},
    {message::codesPanelLocation, u"&Einbauort"},
    {message::codesPanelLookUp, u"Verwendete &Kennzeichen nachschlagen"},
    {message::codesPanelFound, u"Anlagen: %d, Einbauorte: %d"},
    {message::sheetPanelTitle, u"Blatt"},
    {message::sheetPanelSheet, u"&Blatt"},
    {message::sheetPanelDrawing, u"&Zeichnungsnummer"},
    {message::sheetPanelSection, u"Ab&schnitt"},
    {message::sheetPanelSubSection, u"Un&terabschnitt"},
    {message::newDrawingNameMissing, u"Geben Sie einen Dateinamen für die neue Zeichnung ein."},
    {message::newDrawingExists,
        u"Es gibt bereits eine Datei oder einen Ordner dieses Namens:\n%s\n\nWählen Sie einen anderen Namen."},
    {message::newDrawingPlaceInvalid,
        u"Die Zeichnung kann an diesem Ort nicht angelegt werden:\n%s\n\n"
        u"Geben Sie den vollständigen Pfad eines Ordners ein, ohne Zeichen, die in Dateinamen nicht vorkommen "
        u"dürfen."},
    {message::newDrawingTemplateMissing,
        u"Es gibt keine Vorlage dieses Namens:\n%s\n\nWählen Sie eine andere."},
    {message::newDrawingFolderMissing,
        u"Es gibt keinen Ordner dieses Namens:\n%s\n\nWählen Sie einen anderen, oder legen Sie ihn zuerst an."},
    {message::newDrawingNotLocked, u"%s\n\nDem Projekt kann jetzt keine neue Zeichnung hinzugefügt werden."},
    {message::newDrawingProjectClosed,
        u"Das Projekt wurde inzwischen geschlossen, deshalb wurde die Zeichnung nicht angelegt:\n%s\n\n"
        u"Öffnen Sie das Projekt, und versuchen Sie es erneut."},
    {message::newDrawingNotCopied, u"Die Vorlage\n%s\nkann nicht kopiert werden nach\n%s\n\nDer Grund: %s."},
    {message::newDrawingNotRead, u"Die Kopie der Vorlage kann nicht gelesen werden.\n%s."},
    {message::newDrawingReplaceSettings,
        u"Die Vorlage hat eigene Zeichnungseinstellungen:\n%s\n\n"
        u"Möchten Sie sie durch die Vorgaben des Projekts ersetzen?"},
    {message::newDrawingNotSet,
        u"Die Einstellungen des Projekts können nicht in die neue Zeichnung geschrieben werden:\n%s\n\n"
        u"Die Zeichnung wurde nicht angelegt."},
    {message::newDrawingNotSaved, u"Die neue Zeichnung kann nicht gespeichert werden.\n%s."},
    {message::newDrawingNotOpened,
        u"Die neue Zeichnung wurde angelegt, aber nicht geöffnet, und sie ist nicht im Projekt:\n%s\n\n"
        u"Sie kann dem Projekt so hinzugefügt werden, wie sie ist."},
    {message::newDrawingNotAdded,
        u"Die neue Zeichnung\n%s\nkann dem Projekt %s nicht hinzugefügt werden: Das Projekt ist nicht mehr geöffnet "
        u"oder enthält sie bereits."},
    {message::newDrawingNotWritten,
        u"Die neue Zeichnung\n%s\nwurde dem Projekt nicht hinzugefügt. Die Datei\n%s\nkann nicht geschrieben "
        u"werden: %s."},
};
// clang-format on

static_assert(isAscending(texts));

} // namespace

std::span<const Message> creationMessages() noexcept {
    return texts;
}

} // namespace ryv::german
