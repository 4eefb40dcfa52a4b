// Each look at the scale that the environment sets: the sharpness of icons, the height of rows, and texts
// that find room.
#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/outlined_style.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/window/host_window.h"
#include "tests/embedded/palettes/palette_client.h"
#include "tests/embedded/qt/cut_texts.h"
#include "tests/embedded/qt/question_fixture.h"
#include "tests/embedded/qt/speaking.h"
#include "tests/embedded/qt/tree_view_fixture.h"
#include "tests/support/sample_dialog.h"
#include "tests/support/temp_folder.h"

#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QToolButton>

namespace drafta {
namespace {

using test::cutTexts;

constexpr Look looks[] = {Look::light, Look::dark, Look::highContrast};

double scale() {
    return qEnvironmentVariableIsSet("QT_SCALE_FACTOR") ? qEnvironmentVariable("QT_SCALE_FACTOR").toDouble()
                                                        : 1;
}

/// The style of the program, for as long as a test lasts.
class StyleOfProgram {
public:
    StyleOfProgram() { QApplication::setStyle(new OutlinedStyle); }
    ~StyleOfProgram() {
        applyTheme(*qApp, themeFor(Look::light));
        QApplication::setStyle(QStringLiteral("Fusion"));
    }
};

TEST(Looks, icons_haveAsManyPixelsAsTheScreen) {
    const QSize size(metrics::icon, metrics::icon);
    for (const char* const name :
        {"project", "drawing", "reference", "subfolder", "refresh", "drafta", "clear"})
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected}) {
            const QPixmap drawn = themeIcon(name).pixmap(size, scale(), mode);
            EXPECT_EQ(drawn.devicePixelRatio(), scale()) << name;
            EXPECT_EQ(drawn.size(), size * scale()) << name;
        }
    const QWidget window;
    EXPECT_EQ(window.devicePixelRatioF(), scale());
}

class LooksOfRows : public test::TreeViewTest {};

/// Nothing of the selected row may go under in it: how far each pixel is from the ground.
TEST_F(LooksOfRows, row_hasRoomAndStandsOutWhenSelected) {
    const StyleOfProgram style;
    for (const Look look : looks) {
        applyTheme(*qApp, themeFor(look));
        tree.setSelection({&project});
        settle();
        const QRect row = view->visualRect(indexOf(project));
        QFont bold = view->font();
        bold.setBold(true);
        EXPECT_EQ(
            row.height(), std::max(QFontMetrics(bold).height(), metrics::icon) + 2 * metrics::rowPadding);
        const QImage drawn =
            view->viewport()->grab(QRect(0, row.top(), row.left() + 60, row.height())).toImage();
        EXPECT_EQ(drawn.devicePixelRatio(), scale());
        const QColor ground = view->palette().color(QPalette::Active, QPalette::Highlight);
        const auto contrasts = [&](int from, int to) {
            int most = 0;
            for (int x = static_cast<int>(from * scale()); x < static_cast<int>(to * scale()); ++x)
                for (int y = 0; y < drawn.height(); ++y)
                    most = std::max(most, std::abs(qGray(drawn.pixel(x, y)) - qGray(ground.rgb())));
            return most;
        };
        const int branch = row.left() - view->indentation();
        EXPECT_GT(contrasts(branch, row.left()), 60) << "arrow, look " << static_cast<int>(look);
        EXPECT_GT(contrasts(row.left(), row.left() + metrics::icon), 60)
            << "icon, look " << static_cast<int>(look);
    }
}

class LooksOfDialogs : public QuestionFixture {};

TEST_F(LooksOfDialogs, texts_findRoom) {
    const StyleOfProgram style;
    std::vector<Step> steps;
    for (std::size_t i = 0; i < std::size(looks); ++i) {
        steps.push_back([](QWidget& window) {
            EXPECT_EQ(cutTexts(window).join(u';').toStdString(), "");
            window.close();
        });
        steps.push_back(steps.back());
    }
    answerWith(steps);
    for (const Look look : looks) {
        applyTheme(*qApp, themeFor(look));
        ryv::test::SampleDialog dialog;
        ui.runModal(dialog);
        ui.taskDialog({u"A.B", u"Title", u"What is to be done with them?", u"They are many.",
            {{1001, u"Keep all of them, and go on"}, {2, u"Cancel"}}, 1001, {}});
    }
}

TEST(Looks, window_cutsNoTextAndExplainsItsButtons) {
    const StyleOfProgram style;
    for (const ryv::Language language : test::languages) {
        const test::Speaking speaking(language);
        const ryv::test::TempFolder folder;
        HostLoop loop;
        HostOptions options;
        options.profileFolder = options.productFolder = folder.native();
        Host host(loop.connected(std::move(options)));
        loop.follow(host);
        test::PaletteClient client(host.palettes());
        ASSERT_TRUE(client.create());
        ViewContext context;
        HostWindow window(host, loop, context);
        window.open();
        client.set->show(true);
        for (const Look look : looks) {
            window.choose(look);
            QApplication::processEvents();
            EXPECT_EQ(cutTexts(window).join(u';').toStdString(), "");
            for (QAction* const action : window.menuBar()->actions()) {
                action->menu()->popup(QPoint(0, 0));
                EXPECT_EQ(cutTexts(*action->menu()).join(u';').toStdString(), "");
                EXPECT_GE(window.menuBar()->actionGeometry(action).width(),
                    window.fontMetrics().horizontalAdvance(test::withoutMarks(action->text())));
                action->menu()->close();
            }
        }
        for (const QAbstractButton* const button :
            window.findChildren<QAbstractButton*>(QStringLiteral("qt_dockwidget_closebutton")))
            EXPECT_EQ(button->accessibleName(),
                language == ryv::Language::german ? QStringLiteral("Schließen") : QStringLiteral("Close"));
        for (const QAbstractButton* const button : window.findChildren<QAbstractButton*>())
            EXPECT_TRUE(!button->isVisible() || !button->text().isEmpty() || !button->toolTip().isEmpty())
                << button->metaObject()->className() << ' ' << button->objectName().toStdString();
    }
}

} // namespace
} // namespace drafta
