// A text in a window that asks something: to be read, selected and copied.
#pragma once

#include <QTextEdit>

namespace drafta {

/// Breaks lines anywhere when a word, such as a path, is too long; scrolls when it is too tall. Never taken
/// for markup.
class WrappedText final : public QTextEdit {
public:
    WrappedText(const QString& text, QWidget* parent);

    /// Makes it as narrow as its lines allow, and as tall as it has to be, within these limits in pixels.
    void fit(int leastWidth, int mostWidth, int mostHeight);

private:
    int heightAt(int width) const;
};

} // namespace drafta
