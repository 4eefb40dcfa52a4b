// Text on its way between the module and Qt; both are UTF-16.
#pragma once

#include "base/strings.h"

#include <QString>

namespace drafta {

inline QString toQt(ryv::CStringView text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline ryv::CString fromQt(const QString& text) {
    return ryv::CString(text.toStdU16String());
}

} // namespace drafta
