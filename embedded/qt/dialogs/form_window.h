// A window for the forms that package LISP puts together.
#pragma once

#include "platform/ui/user_interface.h"

#include <QDialog>
#include <functional>
#include <vector>

class QFormLayout;

namespace drafta {

class FormWindow final : public QDialog {
public:
    FormWindow(const ryv::FormRequest& request, QWidget* parent);

    /// Takes the answers over; a choice that nobody has made keeps what was proposed. False when the user
    /// cancels.
    bool ask(ryv::FormRequest& request);

private:
    using Reader = std::function<ryv::CStringArray()>;

    QWidget* makeFields(const ryv::FormRequest& request);
    QWidget* makeButtons(const ryv::FormRequest& request);
    void addField(const ryv::FormField& field, QFormLayout& rows);
    Reader addText(const ryv::FormField& field, const QString& label, QFormLayout& rows);
    Reader addCheck(const ryv::FormField& field, const QString& label, QFormLayout& rows);
    Reader addCombo(const ryv::FormField& field, const QString& label, QFormLayout& rows);
    Reader addList(const ryv::FormField& field, const QString& label, QFormLayout& rows);

    std::vector<Reader> readers_; // one for each field
};

} // namespace drafta
