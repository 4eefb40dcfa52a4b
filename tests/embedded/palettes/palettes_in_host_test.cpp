// Palettes and the small services as the host offers them: its commands, its variables, its profile.
#include "embedded/documents/host.h"
#include "tests/embedded/palettes/palette_client.h"
#include "tests/support/temp_folder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace drafta {
namespace {

using test::PaletteClient;

class PalettesInHostTest : public ::testing::Test {
protected:
    ryv::test::TempFolder folder;
    std::string printed, errors;

    std::unique_ptr<Host> makeHost(bool isInBackground = false) {
        HostOptions options;
        options.profileFolder = folder.native("profile");
        options.productFolder = folder.native("product");
        options.print = [this](std::string_view text) { printed += text; };
        options.printError = [this](std::string_view text) { errors += text; };
        options.screen = {1280, 900, 150};
        options.isInBackground = isInBackground;
        auto host = std::make_unique<Host>(std::move(options));
        host->newDocument();
        return host;
    }
    /// The host's command keeps the client until the host ends, when the layouts have been saved: so long do
    /// the palettes of a module live, too.
    static std::shared_ptr<PaletteClient> clientOf(Host& host) {
        auto client = std::make_shared<PaletteClient>(*host.platform().host.palettes);
        EXPECT_TRUE(client->create());
        host.platform().host.commands->addCommand({u"TEST", u"KEEP", u"KEEP", 0, [client] {}});
        return client;
    }
    std::string line(Host& host, const std::string& text) {
        printed.clear();
        host.runLine(ryv::decodeUtf8(text));
        return std::string(printed, std::min(printed.find_first_not_of('\n'), printed.size()));
    }
};

TEST_F(PalettesInHostTest, commands_changeWhatIsShownAndTheLayoutSurvivesTheRun) {
    auto host = makeHost();
    EXPECT_EQ(line(*host, "PALETTES"), "There are no palette sets.\n");
    auto client = clientOf(*host);
    client->set->show(true);
    EXPECT_EQ(line(*host, "(command \"PALETTE\" \"project manager\" \"DOCK\" \"TOP\")"), "T");
    EXPECT_EQ(line(*host, "(command \"PALETTE\" \"*\" \"PAGE\" \"Preview\")"), "T");
    EXPECT_NE(line(*host, "PALETTES").find("docked top"), std::string::npos) << printed;
    EXPECT_NE(printed.find("Details [Preview]"), std::string::npos) << printed;
    for (const char* const words : {"\"*\" \"DOCK\" \"RIGHT\"", "\"none\" \"CLOSE\"", "\"*\" \"SPIN\""})
        EXPECT_NE(line(*host, "(command \"PALETTE\" " + std::string(words) + ")").find("*Cancel*\n\nnil"),
            std::string::npos)
            << printed;
    EXPECT_EQ(line(*host, "(command \"WSSAVE\") (command \"PALETTE\" \"*\" \"FLOAT\" \"\")"),
        "The layout of the palettes is saved.\n\nT\nT");
    EXPECT_TRUE(client->set->isFloating());
    line(*host, "WSLOAD");
    EXPECT_FALSE(client->set->isFloating());
    line(*host, "(command \"PALETTE\" \"*\" \"DOCK\" \"LEFT\")");
    client.reset();
    host.reset();
    EXPECT_EQ(errors, "");
    host = makeHost();
    client = clientOf(*host);
    host->runPending();
    EXPECT_FALSE(client->set->isFloating()) << "taken on before it is shown";
    client->set->show(true);
    EXPECT_NE(line(*host, "PALETTES").find("docked left"), std::string::npos)
        << "saved when the host was left";
}

TEST_F(PalettesInHostTest, variables_showTheServices) {
    auto host = makeHost();
    ryv::Platform& ports = host->platform();
    EXPECT_EQ(line(*host, "(getvar \"COLORTHEME\") (setvar \"COLORTHEME\" 0)"), "1\n0");
    EXPECT_EQ(ports.host.mainWindow->theme(), ryv::HostTheme::dark);
    line(*host, "(setvar \"COLORTHEME\" 2)");
    EXPECT_EQ(line(*host, "(getvar \"COLORTHEME\")"), "0");
    EXPECT_EQ(line(*host, "(getvar \"MENUHOOK\") (getvar \"WAITCURSOR\")"), "1\n0");
    ports.services.menuHook->remove();
    EXPECT_TRUE(ports.services.waitCursor->RyvBeginWaitCursor());
    ports.services.waitCursor->RyvBeginWaitCursor();
    EXPECT_EQ(line(*host, "(getvar \"MENUHOOK\") (getvar \"WAITCURSOR\")"), "0\n1");
    ports.services.waitCursor->RyvEndWaitCursor();
    EXPECT_EQ(line(*host, "(getvar \"WAITCURSOR\")"), "0");
    line(*host, "CLEANSCREENON");
    EXPECT_EQ(line(*host, "(getvar \"CLEANSCREENSTATE\")"), "1");
    line(*host, "CLEANSCREENOFF");
    EXPECT_EQ(line(*host, "(getvar \"CLEANSCREENSTATE\")"), "0");
    EXPECT_EQ(ports.host.mainWindow->screenHeight(), 900);
    EXPECT_EQ(ports.host.mainWindow->dpiFactors().vertical, 1.5);
}

struct Reactor final : ryv::RyvPdsClientReactor {
    std::string told;
    void onUpdate() override { told += 'u'; }
    void onCompletion() override { told += 'c'; }
};

TEST_F(PalettesInHostTest, linkCommands_tellTheReactorsOnceEach) {
    auto host = makeHost();
    Reactor reactor;
    ryv::RyvPdsClientManager& manager = *host->platform().services.clientManager;
    manager.addReactor(reactor);
    manager.addReactor(reactor);
    line(*host, "LINKUPDATE");
    line(*host, "LINKCOMPLETE");
    EXPECT_EQ(reactor.told, "uc");
    manager.removeReactor(reactor);
    line(*host, "LINKUPDATE");
    EXPECT_EQ(reactor.told, "uc");
}

} // namespace
} // namespace drafta
