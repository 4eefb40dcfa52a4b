#include "embedded/qt/dialogs/form_window.h"

#include "embedded/qt/controls/label_texts.h"
#include "embedded/qt/dialogs/scrolled_content.h"
#include "embedded/qt/dialogs/search_list.h"
#include "embedded/qt/look/theme.h"
#include "embedded/qt/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace drafta {

namespace {

using ryv::FormField;

constexpr double partForFields = 0.75;  // of the screen; the rest is for buttons and the window's frame
constexpr std::size_t mostInCombo = 25; // more of them are searched rather than scrolled
// How much of a text is seen at once, whatever stands in front of it.
constexpr qsizetype fewestLetters = 30;
constexpr qsizetype mostLetters = 60;

ryv::CString firstOf(const ryv::CStringArray& values) {
    return values.empty() ? ryv::CString() : values[0];
}

QString buttonText(const ryv::CString& given, const QString& usual) {
    return given.empty() ? usual : asWidgetLabel(given);
}

} // namespace

FormWindow::FormWindow(const ryv::FormRequest& request, QWidget* parent) : QDialog(parent) {
    setWindowTitle(toQt(request.title));
    setObjectName(toQt(request.name));
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(metrics::margin, metrics::margin, metrics::margin, metrics::margin);
    all->setSpacing(metrics::margin);
    all->addWidget(new ScrolledContent(makeFields(request), partForFields, this), 1);
    all->addWidget(makeButtons(request));
    setMinimumWidth(fontMetrics().averageCharWidth() * 50);
}

QWidget* FormWindow::makeFields(const ryv::FormRequest& request) {
    auto* const content = new QWidget(this);
    auto* const rows = new QFormLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(metrics::gap);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const FormField& field : request.fields)
        addField(field, *rows);
    return content;
}

QWidget* FormWindow::makeButtons(const ryv::FormRequest& request) {
    auto* const box = new QDialogButtonBox(this);
    QPushButton* const confirm =
        box->addButton(buttonText(request.confirm, tr("OK")), QDialogButtonBox::AcceptRole);
    box->addButton(buttonText(request.cancel, tr("Cancel")), QDialogButtonBox::RejectRole);
    confirm->setDefault(true);
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return box;
}

void FormWindow::addField(const FormField& field, QFormLayout& rows) {
    const QString label = asWidgetLabel(field.label.empty() ? field.name : field.label);
    const bool isLong = field.choices.size() > mostInCombo;
    Reader reader;
    if (field.kind == FormField::Kind::text)
        reader = addText(field, label, rows);
    else if (field.kind == FormField::Kind::check)
        reader = addCheck(field, label, rows);
    else if (field.kind == FormField::Kind::choice && !isLong)
        reader = addCombo(field, label, rows);
    else
        reader = addList(field, label, rows);
    readers_.push_back(std::move(reader));
}

FormWindow::Reader FormWindow::addText(const FormField& field, const QString& label, QFormLayout& rows) {
    const QString text = toQt(firstOf(field.values));
    auto* const line = new QLineEdit(text, this);
    const qsizetype letters = std::clamp<qsizetype>(text.size() + 2, fewestLetters, mostLetters);
    line->setMinimumWidth(fontMetrics().averageCharWidth() * static_cast<int>(letters));
    rows.addRow(label + u':', line);
    return [line] { return ryv::CStringArray{fromQt(line->text())}; };
}

FormWindow::Reader FormWindow::addCheck(const FormField& field, const QString& label, QFormLayout& rows) {
    auto* const box = new QCheckBox(label, this);
    box->setChecked(firstOf(field.values) == u"1");
    rows.addRow(box);
    return [box] { return ryv::CStringArray{box->isChecked() ? u"1" : u"0"}; };
}

FormWindow::Reader FormWindow::addCombo(const FormField& field, const QString& label, QFormLayout& rows) {
    auto* const combo = new QComboBox(this);
    for (const ryv::CString& choice : field.choices)
        combo->addItem(toQt(choice));
    const auto found = std::find(field.choices.begin(), field.choices.end(), firstOf(field.values));
    combo->setCurrentIndex(
        found == field.choices.end() ? -1 : static_cast<int>(found - field.choices.begin()));
    combo->setPlaceholderText(toQt(firstOf(field.values))); // seen where it is none of the choices
    rows.addRow(label + u':', combo);
    return [combo, choices = field.choices] {
        const int row = combo->currentIndex();
        return row < 0 ? ryv::CStringArray() : ryv::CStringArray{choices[static_cast<std::size_t>(row)]};
    };
}

FormWindow::Reader FormWindow::addList(const FormField& field, const QString& label, QFormLayout& rows) {
    const bool many = field.kind == FormField::Kind::list;
    auto* const list = new SearchList(field.choices, field.values, many, this);
    list->setAccessibleName(label);
    auto* const head = new QLabel(label + u':', this);
    head->setBuddy(list);
    rows.addRow(head);
    rows.addRow(list);
    return [list] { return list->chosen(); };
}

bool FormWindow::ask(ryv::FormRequest& request) {
    if (exec() != Accepted)
        return false;
    for (std::size_t i = 0; i < readers_.size(); ++i) {
        ryv::CStringArray values = readers_[i]();
        if (!values.empty() || request.fields[i].kind == FormField::Kind::list)
            request.fields[i].values = std::move(values);
    }
    return true;
}

} // namespace drafta
