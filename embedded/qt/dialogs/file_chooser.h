// The window in which files are chosen.
#pragma once

#include <QFileDialog>
#include <functional>

namespace drafta {

struct FileChoice {
    QString title;
    QString folder;    ///< native path; empty: the current one
    QString name;      ///< proposed
    QString extension; ///< ".kqp"; empty: all files are shown
    bool save = false;
    bool many = false;
    bool choosesFolder = false;
};

class FileChooser final : public QFileDialog {
public:
    /// `mayReplace` is asked before a file that is there is taken as the place for a new one; unset, nobody
    /// is asked. While it says no, the window stays.
    FileChooser(
        const FileChoice& choice, std::function<bool(const QString& path)> mayReplace, QWidget* parent);

    /// Native paths; none when the user cancels.
    QStringList ask();

    /// Cancels, also under a message that the window itself shows.
    void breakOff();

    void accept() override;

private:
    QString withExtension(QString path) const;

    FileChoice choice_;
    std::function<bool(const QString&)> mayReplace_;
    QString saved_; // the new file
};

} // namespace drafta
