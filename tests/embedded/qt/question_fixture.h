// Questions in windows, answered by steps that run while they stand.
#pragma once

#include "embedded/qt/dialogs/qt_user_interface.h"
#include "embedded/qt/qt_text.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace drafta {

class QuestionFixture : public ::testing::Test {
protected:
    using Step = std::function<void(QWidget& window)>;

    /// One after the other, each when the event loop has nothing else to do: the next one also runs inside of
    /// what a step opens.
    void answerWith(std::vector<Step> steps) {
        steps_ = std::move(steps);
        next(0);
        QTimer::singleShot(60'000, &watch_, [this] {
            ADD_FAILURE() << "a question was never answered";
            quit_ = true;
            ui.closeAll();
        });
    }
    void TearDown() override {
        EXPECT_EQ(taken_, steps_.size()) << "questions that were never asked";
        EXPECT_EQ(standing, 0);
        EXPECT_FALSE(ui.hasOpenDialog());
    }

    void answersFile(ryv::CStringView content) {
        Answers read;
        ryv::CString problem;
        ASSERT_TRUE(Answers::parse(content, read, problem));
        text.setAnswers(read);
    }

    static Step key(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        return [key, with](QWidget& window) {
            QWidget* const at = window.focusWidget();
            QTest::keyClick(at ? at : &window, key, with);
        };
    }
    /// Presses the button with that label; a mark in front of a letter does not matter.
    static Step press(const QString& label) {
        return [label](QWidget& window) {
            for (QAbstractButton* const button : window.findChildren<QAbstractButton*>())
                if (button->text().remove(u'&') == label) {
                    QTest::mouseClick(button, Qt::LeftButton);
                    return;
                }
            ADD_FAILURE() << "no button " << label.toStdString();
            QTest::keyClick(&window, Qt::Key_Escape);
        };
    }

    bool quit_ = false;
    int standing = 0;
    std::int64_t clock = 0;
    std::map<QString, QSize> sizes;
    ryv::CString printed;
    ryv::CString warnings;
    TextUserInterface text{{[this](ryv::CStringView line) { printed += line; },
        [this](ryv::CStringView line) { warnings += line; },
        [](ryv::CStringView) -> std::optional<ryv::CString> { return std::nullopt; }, toModule, toModule,
        [](ryv::CStringView) { return true; }}};
    ViewContext context;
    QtUserInterface ui{text, context, options()};

private:
    static ryv::CString toModule(ryv::CStringView path) { return fromQt(toQt(path).replace(u'/', u'\\')); }
    QtUserInterfaceOptions options() {
        QtUserInterfaceOptions options;
        options.toNative = [](ryv::CStringView path) { return toQt(path).replace(u'\\', u'/'); };
        options.toModulePath = [](const QString& path) { return toModule(fromQt(path)); };
        options.sizes.get = [this](const QString& name) { return sizes[name]; };
        options.sizes.set = [this](const QString& name, QSize size) { sizes[name] = size; };
        options.questionStands = [this](bool stands) { standing += stands ? 1 : -1; };
        options.hasQuit = [this] { return quit_; };
        options.milliseconds = [this] { return clock; };
        return options;
    }
    void next(std::size_t step) {
        if (step == steps_.size())
            return;
        QTimer::singleShot(0, &watch_, [this, step] {
            next(step + 1);
            ++taken_;
            QWidget* const popup = QApplication::activePopupWidget();
            QWidget* const window = popup ? popup : QApplication::activeModalWidget();
            EXPECT_NE(window, nullptr) << "step " << step;
            if (window)
                steps_[step](*window);
        });
    }

    std::vector<Step> steps_;
    std::size_t taken_ = 0;
    QObject watch_; // ends what is still to come
};

} // namespace drafta
