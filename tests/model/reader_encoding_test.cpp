// The encodings and line ends of project files.
#include "tests/support/project_fixture.h"

namespace ryv::test {
namespace {

class ReaderEncoding : public ProjectFixture {
protected:
    static std::string encoded(CStringView text, TextEncoding encoding) {
        std::string bytes(mark(encoding));
        encode(text, encoding, bytes);
        return bytes;
    }
};

constexpr TextEncoding encodings[] = {TextEncoding::utf8, TextEncoding::utf8WithMark,
    TextEncoding::utf16LittleEndian, TextEncoding::utf16BigEndian, TextEncoding::windows1252};

TEST_F(ReaderEncoding, everyEncodingAndLineEnd_readsAlikeAndIsKept) {
    const CString text =
        u"*[1]Stra\u00DFe \u20AC\n?[5]\u00E9\n=\u00FCber\n=====SUB=\u00E4\u00E9\n\u00D6l.dwg\n";
    RyvPrmProjectData expected;
    read(toUtf8(text), expected);
    ASSERT_EQ(treeText(expected), "\u00C4\u00C9{C:\\P\\\u00D6l.dwg}");
    for (const TextEncoding encoding : encodings) {
        for (const CString& ended :
            {text, replaceAll(text, u"\n", u"\r\n"), replaceAll(text, u"\n", u"\r\n \n")}) {
            RyvPrmProjectData project;
            read(encoded(ended, encoding), project);
            EXPECT_TRUE(project == expected) << encodingName(encoding);
            const std::string written = rewrite(encoded(ended, encoding));
            EXPECT_EQ(detectEncoding(written), encoding) << encodingName(encoding);
            EXPECT_EQ(written.find('\r'), std::string::npos) << encodingName(encoding);
            EXPECT_EQ(written.substr(0, 12), encoded(u"*[1]Stra\u00DFe \u20AC", encoding).substr(0, 12));
        }
    }
    EXPECT_TRUE(recorder.findings.empty());
}

TEST_F(ReaderEncoding, carriageReturns_countOnlyInFrontOfALineFeed) {
    RyvPrmProjectData project;
    read("=a\rb\r\r\nx.dwg\r\n*[1]c\rd\r\n", project);
    EXPECT_EQ(project.findFile(u"C:\\P\\x.dwg")->getDescription1(), u"a\rb\r");
    EXPECT_EQ(project.getProjDescriptions(), CStringList{u"c\rd"});
}

/// A "\n" inside a UTF-16 unit, or "\r" at its half, is no line end.
TEST_F(ReaderEncoding, bytesOfUtf16Units_areNoLineEnds) {
    for (const TextEncoding encoding : {TextEncoding::utf16LittleEndian, TextEncoding::utf16BigEndian}) {
        RyvPrmProjectData project;
        read(encoded(u"=\u0A0A\u0D0D\u0A0D\u3D3D\nx.dwg\n", encoding), project);
        EXPECT_EQ(project.findFile(u"C:\\P\\x.dwg")->getDescription1(), u"\u0A0A\u0D0D\u0A0D\u3D3D");
    }
}

TEST_F(ReaderEncoding, windows1252_isReadWithItsUndefinedBytes) {
    RyvPrmProjectData project;
    read("=\x80\x81\x8D\x8F\x90\x9D\xA0\xFF\nx.dwg\n", project);
    EXPECT_EQ(project.findFile(u"C:\\P\\x.dwg")->getDescription1(),
        u"\u20AC\u0081\u008D\u008F\u0090\u009D\u00A0\u00FF");
    EXPECT_EQ(recorder.count(ProjectFinding::undecodableBytes), 1u);
    EXPECT_TRUE(write(project).ends_with("\n=\x80\x81\x8D\x8F\x90\x9D\xA0\xFF\nx.dwg\n"));
}

/// What a marked file holds comes back byte for byte, valid or not.
TEST_F(ReaderEncoding, invalidBytesUnderAMark_surviveAsText) {
    RyvPrmProjectData project;
    read("\xEF\xBB\xBF=\xFF\xED\xA0\x80\nx.dwg\n", project);
    const CString expected{char16_t{0xDCFF}, char16_t{0xD800}};
    EXPECT_EQ(project.findFile(u"C:\\P\\x.dwg")->getDescription1(), expected);
    RyvPrmProjectData again;
    const std::string written = write(project);
    read(written, again);
    EXPECT_TRUE(again == project);
}

} // namespace
} // namespace ryv::test
