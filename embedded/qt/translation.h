// The texts of the window in the user's language.
#pragma once

#include <QTranslator>

class QCoreApplication;

namespace drafta {

/// Gives tr() the host's texts (embedded/services/host_texts.h), for as long as it lives. What they lack,
/// such as rare texts of the widget library, comes from the library's own catalogue where it is installed.
class Translation {
public:
    explicit Translation(QCoreApplication& application);
    ~Translation();

private:
    class Texts final : public QTranslator {
    public:
        bool isEmpty() const override { return false; }
        QString translate(
            const char* context, const char* text, const char* remark, int count) const override;
    };

    QCoreApplication& application_;
    QTranslator library_;
    Texts texts_;
};

} // namespace drafta
