#include "embedded/qt/dialogs/file_chooser.h"

#include <QFileInfo>
#include <QMessageBox>

namespace drafta {

FileChooser::FileChooser(
    const FileChoice& choice, std::function<bool(const QString&)> mayReplace, QWidget* parent)
    : QFileDialog(parent, choice.title, choice.folder), choice_(choice), mayReplace_(std::move(mayReplace)) {
    // The desktop's own window asks questions of its own, which answers files could not reach.
    setOption(DontUseNativeDialog);
    setOption(DontConfirmOverwrite);
    setAcceptMode(choice.save ? AcceptSave : AcceptOpen);
    setFileMode(choice.save ? AnyFile : choice.many ? ExistingFiles : ExistingFile);
    if (choice.choosesFolder) {
        setFileMode(Directory);
        setOption(ShowDirsOnly);
    }
    if (!choice.extension.isEmpty())
        setNameFilter(tr("%1 files (*%2)").arg(choice.extension.mid(1).toUpper(), choice.extension));
    if (!choice.name.isEmpty())
        selectFile(choice.name);
}

QString FileChooser::withExtension(QString path) const {
    return path.endsWith(choice_.extension, Qt::CaseInsensitive) ? path : path + choice_.extension;
}

void FileChooser::accept() {
    const QStringList files = selectedFiles();
    if (!choice_.save || files.isEmpty() || QFileInfo(files.front()).isDir()) {
        QFileDialog::accept(); // goes into folders, and refuses files that are not there
        return;
    }
    const QString path = withExtension(files.front());
    if (QFileInfo(path).isDir() || (QFileInfo::exists(path) && mayReplace_ && !mayReplace_(path)))
        return;
    saved_ = path;
    done(Accepted);
}

QStringList FileChooser::ask() {
    if (exec() != Accepted)
        return {};
    return choice_.save ? QStringList{saved_} : selectedFiles();
}

void FileChooser::breakOff() {
    for (QMessageBox* const message : findChildren<QMessageBox*>())
        message->reject();
    reject();
}

} // namespace drafta
