#include "embedded/qt/window/help_window.h"

#include "embedded/qt/look/icons.h"
#include "embedded/qt/look/theme.h"

#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextTable>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace drafta {

namespace {

constexpr QSize firstSize{620, 700};

QToolButton* makeButton(const QString& text, QTextBrowser& pages, void (QTextBrowser::*go)(),
    void (QTextBrowser::*available)(bool)) {
    auto* const button = new QToolButton;
    button->setText(text);
    button->setAutoRaise(true);
    button->setEnabled(false);
    QObject::connect(button, &QToolButton::clicked, &pages, go);
    QObject::connect(&pages, available, button, &QWidget::setEnabled);
    return button;
}

/// What the folder of a language lacks, such as pictures that hold no text, is that of the folder above it.
class PageBrowser final : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

private:
    QVariant loadResource(int type, const QUrl& name) override {
        const QUrl file = source().resolved(name);
        const QUrl above = file.resolved(QUrl(QStringLiteral("../") + file.fileName()));
        const bool isAbove = file.isLocalFile() && !QFileInfo::exists(file.toLocalFile()) &&
                             QFileInfo::exists(above.toLocalFile());
        return QTextBrowser::loadResource(type, isAbove ? above : file);
    }
};

/// Tables come with a double frame around each cell, and no room in it.
void arrangeTables(const QTextDocument& document) {
    for (QTextFrame* const frame : document.rootFrame()->childFrames())
        if (auto* const table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setBorder(0);
            format.setCellSpacing(0);
            format.setCellPadding(metrics::gap / 2.0);
            table->setFormat(format);
        }
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window), pages_(new PageBrowser(this)) {
    setObjectName(QStringLiteral("help"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Help"));
    setWindowIcon(themeIcon("help"));
    pages_->setOpenLinks(true);
    pages_->setOpenExternalLinks(false);
    pages_->document()->setDocumentMargin(metrics::margin);
    pages_->setAccessibleName(tr("Help page"));
    connect(pages_, &QTextBrowser::sourceChanged, this, [this] {
        arrangeTables(*pages_->document());
        const QString title = pages_->toPlainText().section(u'\n', 0, 0);
        setWindowTitle(title.isEmpty() ? tr("Help") : tr("%1 - Help").arg(title));
    });
    auto* const bar = new QHBoxLayout;
    bar->setContentsMargins(metrics::gap / 2, metrics::gap / 2, metrics::gap / 2, metrics::gap / 2);
    bar->addWidget(
        makeButton(tr("Back"), *pages_, &QTextBrowser::backward, &QTextBrowser::backwardAvailable));
    bar->addWidget(
        makeButton(tr("Forward"), *pages_, &QTextBrowser::forward, &QTextBrowser::forwardAvailable));
    bar->addStretch(1);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addLayout(bar);
    rows->addWidget(pages_, 1);
    resize(firstSize);
    pages_->setFocus();
}

HelpWindow* HelpWindow::showPage(const QString& file, QWidget* parent) {
    QWidget* const dialog = QApplication::activeModalWidget();
    QWidget* const owner = dialog ? dialog : parent;
    HelpWindow* window = nullptr;
    for (QWidget* const each : QApplication::topLevelWidgets())
        if (auto* const open = dynamic_cast<HelpWindow*>(each); open && open->parentWidget() == owner)
            window = open;
    if (!window)
        window = new HelpWindow(owner);
    window->pages_->setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace drafta
