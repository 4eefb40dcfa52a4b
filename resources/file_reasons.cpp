#include "resources/file_reasons.h"

#include "base/text.h"
#include "resources/language.h"

namespace ryv {

namespace {

CStringView inGerman(FileError error) noexcept {
    switch (error) {
    case FileError::none:
        return u"kein Fehler";
    case FileError::missing:
        return u"Datei oder Ordner nicht gefunden";
    case FileError::denied:
        return u"Zugriff verweigert";
    case FileError::readOnly:
        return u"schreibgeschützt";
    case FileError::exists:
        return u"die Datei gibt es bereits";
    case FileError::isFolder:
        return u"es ist ein Ordner";
    case FileError::notFolder:
        return u"ein Teil des Pfads ist kein Ordner";
    case FileError::notRegular:
        return u"es ist keine gewöhnliche Datei";
    case FileError::noSpace:
        return u"kein Platz mehr auf dem Datenträger";
    case FileError::io:
        return u"Ein-/Ausgabefehler";
    case FileError::busy:
        return u"von einem anderen Prozess verwendet";
    case FileError::changedOutside:
        return u"ein anderer Prozess hat die Datei seit dem Lesen geändert";
    case FileError::unsupported:
        return u"vom Dateisystem nicht unterstützt";
    case FileError::badName:
        return u"kein möglicher Dateiname";
    case FileError::tooLarge:
        return u"zu groß";
    case FileError::other:
        break;
    }
    return u"unerwarteter Fehler";
}

} // namespace

CString fileReason(FileError error) {
    return language() == Language::german ? CString(inGerman(error)) : fromAscii(describe(error));
}

} // namespace ryv
