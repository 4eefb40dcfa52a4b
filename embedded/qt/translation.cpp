#include "embedded/qt/translation.h"

#include "embedded/qt/qt_text.h"
#include "embedded/services/host_texts.h"
#include "resources/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace drafta {

QString Translation::Texts::translate(const char*, const char* text, const char*, int) const {
    const ryv::CString english = fromQt(QString::fromUtf8(text));
    const ryv::CStringView other = hostText(english);
    return other == english ? QString() : toQt(other);
}

/// The one that was installed last is asked first.
Translation::Translation(QCoreApplication& application) : application_(application) {
    if (ryv::language() == ryv::Language::english)
        return;
    const QString catalogue = QStringLiteral("qtbase_") + toQt(ryv::codeOf(ryv::language()));
    if (library_.load(catalogue, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application_.installTranslator(&library_);
    application_.installTranslator(&texts_);
}

Translation::~Translation() {
    application_.removeTranslator(&texts_);
    application_.removeTranslator(&library_);
}

} // namespace drafta
