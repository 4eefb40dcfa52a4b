#include "tests/model/generated_project.h"

#include "base/fold.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <set>

namespace ryv::test {
namespace {

const CString loneHigh(1, char16_t{0xD83D});
const CString loneLow(1, char16_t{0xDE00});
const CString nul(1, u'\0');

CStringView randomPiece(Random& chance) {
    if (!chance.oneIn(4))
        return chance.pick({u"a", u"Motor", u"x1", u"-", u".", u" ", u"%N", u"7"});
    return chance.pick({u"\u00E4", u"\u00DF", u"\u20AC", u"\u03A9", u"\u0416", u"\u6F22\u5B57", u"\U0001F600",
        loneHigh, loneLow, nul, u"\"", u"[", u"]", u"*[1]", u"+[2]", u"?[0]", u"=", u"====REF", u"=====SUB=A",
        u"[Empty]", u"\t", u"\u00A0", u"\u3000", u"\uFEFF", u"\u0081", u"\u0085", u"\u2028", u"\uFFFF",
        u"%SL_DIR%", u"\v"});
}

CString withoutLeading(CStringView text, CStringView units) {
    return CString(text.substr(std::min(text.find_first_not_of(units), text.size())));
}

CString withoutLeadingBlanks(const CString& text) {
    return CString(trimLeft(text));
}

/// One component of a path: anything but separators, and neither "." nor "..".
CString randomComponent(Random& chance) {
    CString text = replaceAll(randomText(chance), u'/', u'-');
    return text.empty() || text == u"." || text == u".." ? CString(u"x") : text;
}

CString randomPath(Random& chance, CStringView folder) {
    CString path;
    switch (chance.below(8)) {
    case 0:
        path = u"E:\\other";
        break;
    case 1:
        path = u"\\\\server\\share";
        break;
    case 2:
        path = u"\\rooted";
        break;
    case 3:
        path = folder.substr(0, folder.rfind(u'\\'));
        break;
    case 4:
        path = CString(folder) + u"\\" + CString(100 + chance.below(200), u'w');
        break;
    default:
        path = folder;
    }
    for (std::size_t depth = chance.below(3); depth-- > 0;)
        path += u"\\" + randomComponent(chance);
    path += u"\\" + randomComponent(chance) + u"x.dwg";
    if (chance.oneIn(60))
        return CString(260 + chance.below(50), u'r') + path.substr(2);
    return chance.oneIn(60) ? u"C:" + randomComponent(chance) + u"x" : path;
}

std::unique_ptr<RyvPrmFileDetails> randomDrawing(Random& chance, CStringView folder) {
    auto drawing = std::make_unique<RyvPrmFileDetails>(randomPath(chance, folder));
    if (chance.oneIn(2))
        drawing->setDescription1(withoutLeading(randomText(chance), u"="));
    if (chance.oneIn(3))
        drawing->setDescription2(withoutLeading(randomText(chance), u"="));
    for (std::size_t lines = chance.oneIn(3) ? chance.below(4) : 0; lines-- > 0;)
        drawing->addDescription(withoutLeading(randomText(chance), u"="));
    drawing->setReferenceOnly(chance.oneIn(8));
    return drawing;
}

/// A name that a reader could have made and that stands for itself wherever it is in a trace.
CString randomSubfolderName(Random& chance, std::set<CString>& taken) {
    CString name = withoutLeading(trimLeft(toUpper(replaceAll(randomText(chance), u'/', u'-'))), u"=");
    name = withoutLeadingBlanks(name).empty() || name[0] == u'=' || isSpace(name[0]) ? CString(u"S") + name
                                                                                     : name;
    while (!taken.insert(name).second)
        name += u"2";
    return name;
}

void fillSubfolder(Random& chance, CStringView folder, RyvPrmSubfolder& subfolder, int depth);

std::unique_ptr<RyvPrmItem> randomItem(
    Random& chance, CStringView folder, std::set<CString>& taken, int depth) {
    if (depth == 0 || !chance.oneIn(4))
        return randomDrawing(chance, folder);
    auto subfolder = std::make_unique<RyvPrmSubfolder>(randomSubfolderName(chance, taken));
    fillSubfolder(chance, folder, *subfolder, depth - 1);
    return subfolder;
}

void fillSubfolder(Random& chance, CStringView folder, RyvPrmSubfolder& subfolder, int depth) {
    std::set<CString> taken;
    for (std::size_t items = chance.below(4); items-- > 0;)
        subfolder.add(randomItem(chance, folder, taken, depth));
}

void fillSettings(Random& chance, RyvPrmProjectData& project) {
    RyvPmMiscProjSettings misc;
    for (std::size_t count = chance.below(8); count-- > 0;) {
        const CString value =
            chance.oneIn(2) ? CString(chance.pick({u"0", u"1", u"8", u"15", u""})) : randomText(chance);
        misc.setValue(static_cast<int>(1 + (chance.oneIn(2) ? chance.below(30) : chance.below(255))), &value);
    }
    project.setMiscProjSettings(misc);
    RyvCfgDrawingSettings settings;
    settings.fillWithDefaults(misc);
    for (std::size_t count = chance.below(8); count-- > 0;) {
        const auto index = static_cast<int>(chance.below(77));
        const CString text = randomText(chance);
        const CString value = index == 63 || index == 65 ? text : withoutLeadingBlanks(text);
        if (index != 13 && index != 46)
            settings.setValue(index, &value);
    }
    project.setProjDefKQMVals(settings);
}

/// A line of one of the kinds; most are well-formed.
CString randomLine(Random& chance) {
    const CString text = randomText(chance);
    const CString number = toText(static_cast<long long>(chance.below(12)));
    const int setting = chance.pick(std::array{0, 5, 12, 14, 26, 50, 51, 63, 64, 65, 71, 76, 77});
    switch (chance.below(14)) {
    case 0:
        return u"*[" + number + u"]" + text;
    case 1:
        return u"+[" + number + u"]" + text;
    case 2:
        return u"?[" + toText(setting) + u"]" + text;
    case 3:
        return u"=" + text;
    case 4:
        return u"==" + text;
    case 5:
        return u"===" + text;
    case 6:
        return u"====REF";
    case 7:
        return u"=====SUB=" + CString(chance.pick({u"A", u"b", u"A/B", u"A/b/C", u"Sub", u"", u" x"}));
    case 8:
        return u"=====SUB=" + CString(chance.pick({u"A", u"D", u"A/E"})) + u"[Empty]";
    case 9:
        return chance.oneIn(4) ? text : CString();
    default:
        return CString(chance.pick({u"", u"", u"..\\", u"a/", u"E:\\", u"\\\\s\\h\\", u"\""})) + text +
               u".dwg";
    }
}

} // namespace

CString randomText(Random& chance) {
    CString text;
    for (std::size_t pieces = chance.below(5); pieces-- > 0;)
        text += randomPiece(chance);
    return text;
}

void fillProject(Random& chance, CStringView folder, RyvPrmProjectData& project) {
    CStringList descriptions;
    for (std::size_t lines = chance.below(5); lines-- > 0;)
        descriptions.push_back(chance.oneIn(3) ? CString() : randomText(chance));
    if (!descriptions.empty())
        descriptions.back() += u".";
    project.setProjDescriptions(std::move(descriptions));
    fillSettings(chance, project);
    std::set<CString> taken;
    for (std::size_t items = chance.below(6); items-- > 0;)
        project.addFile(randomItem(chance, folder, taken, 3));
}

CString randomFile(Random& chance) {
    const CStringView lineEnd = chance.pick({u"\n", u"\r\n"});
    CString text;
    for (std::size_t lines = chance.below(20); lines-- > 0;)
        text.append(randomLine(chance)).append(lineEnd);
    return chance.oneIn(4) ? text + randomLine(chance) : text;
}

TextEncoding randomEncoding(Random& chance) {
    return static_cast<TextEncoding>(chance.below(5));
}

std::string encodedFile(CStringView text, TextEncoding encoding) {
    std::string bytes(mark(encoding));
    encode(text, encoding, bytes);
    return bytes;
}

} // namespace ryv::test
