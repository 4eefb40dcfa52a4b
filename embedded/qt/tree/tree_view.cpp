#include "embedded/qt/tree/tree_view.h"

#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"
#include "embedded/qt/tree/tree_model.h"
#include "embedded/qt/tree/tree_row_delegate.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <utility>

namespace drafta {

TreeView::TreeView(ryv::TreeControl& control, ViewContext& context, QWidget* parent)
    : QTreeView(parent), control_(control), context_(context), model_(new TreeModel(control, this)),
      delegate_(new TreeRowDelegate(control, this)), drag_(*this, control),
      changes_(control.changed.subscribe([this](const ryv::Control&) { followControl(); })) {
    follower_.emplace(*this, control);
    setUp();
    setModel(model_);
    // Behind Qt's selection, which forgets everything then.
    connect(model_, &QAbstractItemModel::modelReset, this, [this] { follower_->followAll(); });
    follower_->followAll();
    followControl();
}

TreeView::~TreeView() {
    if (!editor_)
        return;
    endEdit();
    control_.finishEdit(std::nullopt);
}

void TreeView::setUp() {
    setItemDelegate(delegate_);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIconSize(QSize(metrics::icon, metrics::icon));
    setIndentation(metrics::icon + metrics::rowPadding);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(false);
    setAutoScroll(false);
    setAcceptDrops(true);
    labelClick_.setSingleShot(true);
    labelClick_.setObjectName(QStringLiteral("labelClick"));
    connect(&labelClick_, &QTimer::timeout, this, [this] {
        const auto clicked = std::exchange(clickedLabel_, nullptr);
        if (clicked && clicked->item())
            perform(*clicked->item(), [this](ryv::TreeItem& item) { control_.clickLabel(item); });
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (layingOut_ == 0)
            follower_->scrolled();
    });
    // Qt may set it only after the layout to which it belongs.
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { laidOut(); });
}

void TreeView::followControl() {
    setEnabled(control_.isEnabled());
    setAccessibleName(spokenLabel(control_));
    viewport()->update();
}

/// The row may be gone, and the view too, before the work's turn comes.
void TreeView::perform(ryv::TreeItem& item, std::function<void(ryv::TreeItem& item)> work) {
    const auto row = std::make_shared<ryv::TreeItemWatch>(control_, item);
    context_.perform([row, view = QPointer<TreeView>(this), work = std::move(work)] {
        if (view && row->item())
            work(*row->item());
    });
}

// -- Layout and scrolling

void TreeView::doItemsLayout() {
    ++layingOut_;
    QTreeView::doItemsLayout();
    --layingOut_;
    laidOut();
}

/// The scroll bar moves with the rows, not by the hand of the user.
void TreeView::laidOut() {
    ++layingOut_;
    follower_->laidOut();
    --layingOut_;
}

void TreeView::updateGeometries() {
    ++layingOut_;
    QTreeView::updateGeometries();
    --layingOut_;
    const int rowHeight = delegate_->sizeHint(optionOf({}), {}).height();
    control_.setPageRows(static_cast<std::size_t>(viewport()->height() / rowHeight));
    placeEditor();
}

void TreeView::scrollContentsBy(int dx, int dy) {
    QTreeView::scrollContentsBy(dx, dy);
    placeEditor();
}

void TreeView::scrollToUpperEdge(const QModelIndex& index, int offset) {
    const QRect row = visualRect(index);
    if (row.isValid())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + row.top() + offset);
}

/// The lowest line of a row, which Qt may leave out, too.
void TreeView::reveal(const QModelIndex& index) {
    scrollTo(index);
    const int hidden = visualRect(index).bottom() - viewport()->rect().bottom();
    if (hidden > 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + hidden);
}

QModelIndexList TreeView::indexesOnScreen() const {
    QModelIndexList indexes;
    const int end = viewport()->height();
    for (QModelIndex at = indexAt(QPoint(0, 0)); at.isValid() && visualRect(at).top() < end;
         at = indexBelow(at))
        indexes.append(at);
    return indexes;
}

void TreeView::showEvent(QShowEvent* event) {
    QTreeView::showEvent(event);
    const QModelIndex focus = model_->indexOf(control_.focus());
    if (!control_.firstVisible() && focus.isValid() && visualRect(focus).isValid())
        reveal(focus);
}

void TreeView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        layOutLater();
}

/// Nothing that a row shows changes its height, so looking for its place is not worth the time.
void TreeView::dataChanged(const QModelIndex& from, const QModelIndex& to, const QList<int>& roles) {
    viewport()->update();
    if (QAccessible::isActive())
        QAbstractItemView::dataChanged(from, to, roles);
}

// -- What Qt would do of its own accord

QModelIndex TreeView::moveCursor(CursorAction, Qt::KeyboardModifiers) {
    return currentIndex();
}

QItemSelectionModel::SelectionFlags TreeView::selectionCommand(const QModelIndex&, const QEvent*) const {
    return QItemSelectionModel::NoUpdate;
}

/// What is repainted for a selection; to find its rows takes longer.
QRegion TreeView::visualRegionForSelection(const QItemSelection& selection) const {
    return selection.isEmpty() ? QRegion() : QRegion(viewport()->rect());
}

// -- Editing

void TreeView::beginEdit(ryv::TreeItem& item, const ryv::CString& text) {
    const LabelEditor::Hooks hooks = {
        .problem =
            [this](const QString& typed) {
                const ryv::TreeItem* const edited = control_.editedItem();
                return edited ? toQt(control_.problemOfLabel(*edited, fromQt(typed))) : QString();
            },
        .finish =
            [this](const std::optional<ryv::CString>& typed) {
                endEdit();
                context_.perform([&control = control_, typed] { control.finishEdit(typed); });
            },
    };
    reveal(model_->indexOf(&item));
    editor_ = new LabelEditor(toQt(text), hooks, viewport());
    placeEditor();
    editor_->show();
    editor_->setFocus();
}

/// The keyboard goes to the rows first, or hiding the editor would hand it to somebody else.
void TreeView::endEdit() {
    if (!editor_)
        return;
    LabelEditor& editor = *std::exchange(editor_, nullptr);
    const bool hadKeyboard = editor.hasFocus();
    editor.dismiss();
    if (hadKeyboard)
        setFocus();
}

void TreeView::placeEditor() {
    if (!editor_ || !control_.editedItem())
        return;
    const QModelIndex index = model_->indexOf(control_.editedItem());
    const QRect row = visualRect(index);
    if (!row.isValid())
        return editor_->hide();
    const QRect label = delegate_->labelRect(optionOf(index), index);
    editor_->place(QRect(label.left(), row.top(), viewport()->width() - label.left(), row.height()));
    editor_->show();
}

} // namespace drafta
