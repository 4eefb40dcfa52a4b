#include "embedded/qt/controls/label_texts.h"

#include "embedded/qt/controls/control_link.h"
#include "embedded/qt/qt_text.h"
#include "toolkit/plain_text.h"

#include <QLabel>

namespace drafta {

QString asWidgetLabel(ryv::CStringView plain) {
    return toQt(ryv::asLabel(plain));
}

QString asTooltip(ryv::CStringView plain) {
    if (plain.empty())
        return {};
    const QString lines = toQt(plain).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"));
    return QStringLiteral("<qt>%1</qt>").arg(lines);
}

QString spokenLabel(const ryv::Control& control) {
    QString label = toQt(ryv::withoutMarks(control.label())).trimmed();
    if (label.endsWith(u':'))
        label.chop(1);
    return label;
}

QLabel* makeFieldLabel(ryv::Control& control, QWidget& field, QWidget* parent) {
    if (control.label().empty())
        return nullptr;
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(&field);
    follow(*label, control, [label, &control] {
        const QString text = toQt(control.label());
        label->setText(text.endsWith(u':') ? text : text + u':');
        label->setEnabled(control.isEnabled());
        if (label->isHidden() == control.isVisible())
            label->setVisible(control.isVisible());
    });
    return label;
}

} // namespace drafta
