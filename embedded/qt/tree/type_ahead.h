// Letters that are typed one shortly after the other make up one text.
#pragma once

#include <QString>

namespace drafta {

class TypeAhead {
public:
    static constexpr quint64 pause = 1000; ///< milliseconds after which a new text begins

    /// What has been typed by now; `now` in milliseconds, from any start.
    const QString& add(const QString& letters, quint64 now) {
        if (!isUnderWay(now))
            text_.clear();
        last_ = now;
        return text_ += letters;
    }
    bool isUnderWay(quint64 now) const { return !text_.isEmpty() && now - last_ < pause; }
    void end() { text_.clear(); }

private:
    QString text_;
    quint64 last_ = 0;
};

} // namespace drafta
