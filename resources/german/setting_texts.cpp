#include "resources/catalogue.h"

namespace ryv::german {

namespace {

// clang-format off
constexpr SettingText texts[] = {
    {u"CFG037", u"Vorgabe für Strompfade: H=waagerecht, V=senkrecht"},
    {u"CFG038", u"1=Strompfadnummern, 2=Lineal, 3=eigener Block, 4=X-Y, 5=X-Zone, 6=Blatt und Nummern, 7=Blatt (-) Nummern, 8=Nummern in Sechsecken, 9=Blatt und Nummern in Sechsecken"},
    {u"CFG039", u"Betriebsmittelkennzeichen: R=nach Strompfad, S=fortlaufend"},
    {u"CFG040", u"Liste der Zusätze für Betriebsmittelkennzeichen"},
    {u"CFG041", u"Format der Betriebsmittelkennzeichen (Beispiel: %F%N)"},
    {u"CFG042", u"Drahtnummerierung: R=nach Strompfad, S=fortlaufend"},
    {u"CFG043", u"Liste der Zusätze für Drahtnummern"},
    {u"CFG044", u"Format der Drahtnummern (Beispiel: %N)"},
    {u"CFG045", u"Schrittweite der Drahtnummern (fortlaufende Nummerierung)"},
    {u"CFG046", u"Vorgabe für den Abstand der Strompfade"},
    {u"CFG047", u"Vorgabe für die Breite neuer Strompfade"},
    {u"CFG048", u"Format der Querverweise innerhalb der Zeichnung (Beispiel: %N)"},
    {u"CFG049", u"Schrittweite der Strompfadverweise"},
    {u"CFG050", u"0=alle Strompfade zeichnen, 1=jeden zweiten auslassen"},
    {u"CFG051", u"Vorgabe für den Abstand der Dreiphasenschienen"},
    {u"CFG052", u"X-Koordinate des Ursprungs für X-Y oder X-Zone"},
    {u"CFG053", u"Y-Koordinate des Ursprungs für X-Y oder X-Zone"},
    {u"CFG054", u"Waagerechter Abstand für X-Y oder X-Zone"},
    {u"CFG055", u"Senkrechter Abstand für X-Y-Verweise"},
    {u"CFG056", u"Erstes Zeichen waagerecht für X-Y oder X-Zone"},
    {u"CFG057", u"Erstes Zeichen senkrecht für X-Y-Verweise"},
    {u"CFG058", u"Format der X-Y-Verweise: 0=V-H, 1=H-V"},
    {u"CFG059", u"X-Y-Verweise: Trennzeichen"},
    {u"CFG060", u"Drahtlayer"},
    {u"CFG061", u"Layer für Drahtnummern"},
    {u"CFG062", u"Layer für zusätzliche Kopien von Drahtnummern"},
    {u"CFG063", u"Layer für feste Drahtnummern"},
    {u"CFG064", u"Skalierfaktor der Einheit (Beispiel: 1.0 oder 25.4)"},
    {u"CFG065", u"Skalierfaktor der Elemente (Vorgabe 1.0)"},
    {u"CFG066", u"Layer für Betriebsmittelkennzeichen im Schaltplan"},
    {u"CFG067", u"Layer für Querverweistext"},
    {u"CFG068", u"Layer für Beschreibungen der Hauptelemente im Schaltplan"},
    {u"CFG069", u"Layer für Klemmennummern"},
    {u"CFG070", u"Layer für Querverweistext der Nebenelemente"},
    {u"CFG071", u"Layer für Beschreibungen der Nebenelemente im Schaltplan"},
    {u"CFG072", u"Layer für Texte zu Funktion/Anlage und Einbauort"},
    {u"CFG073", u"Layer für Beschriftungen der Schalterstellungen"},
    {u"CFG074", u"Layer für sonstige Texte im Schaltplan"},
    {u"CFG075", u"Bezugslinien der Drahtnummern: 0=nach Bedarf, 1=immer, 2=nie"},
    {u"CFG076", u"Vorgabe für die Stilnummer der SPS-Grafik"},
    {u"CFG077", u"Vorgabe für die Stilnummer der Signalpfeile"},
    {u"CFG078", u"Layer für gestrichelte Verbindungslinien"},
    {u"CFG079", u"Layer für Betriebsmittelgrafik im Schaltplan"},
    {u"CFG080", u"Format der Querverweise auf andere Zeichnungen (Beispiel: %S-%N)"},
    {u"CFG081", u"Layer für feste Betriebsmittelkennzeichen"},
    {u"CFG082", u"Stil der Drahtkreuzungen (0=Lücke, 1=Bogen, 2=keine Lücke)"},
    {u"CFG083", u"Layer für Drahtnummern an Klemmen und Signalen"},
    {u"CFG084", u"Layerliste für Einzellinien der Leitungsbündel (Fan-in/Fan-out)"},
    {u"CFG085", u"Stilnummer des Symbols der Leitungsbündel (Fan-in/Fan-out)"},
    {u"CFG086", u"Layer für den Umriss der Einbauortrahmen"},
    {u"CFG090", u"Sortierfolge beim Neuvergeben von Kennzeichen und Drahtnummern"},
};
// clang-format on

} // namespace

std::span<const SettingText> settingTexts() noexcept {
    return texts;
}

} // namespace ryv::german
