#include "foundation/controls/QtDialogService.h"

#include "foundation/controls/CommonDialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace {

bool showFileDialog(CommonDialog& dialog, QFileDialog::AcceptMode mode)
{
    QFileDialog fileDialog(QApplication::activeWindow());
    fileDialog.setAcceptMode(mode);
    fileDialog.setFileMode(QFileDialog::AnyFile);
    fileDialog.setOption(QFileDialog::DontConfirmOverwrite, true);
    const QString filter = CommonDialog::QtFilter(dialog.Filter);
    if (!filter.isEmpty())
        fileDialog.setNameFilter(filter);
    fileDialog.setDefaultSuffix(CommonDialog::QtDefaultSuffix(dialog.DefaultExt));
    if (!dialog.FileName.isEmpty())
        fileDialog.selectFile(dialog.FileName);
    if (fileDialog.exec() != QDialog::Accepted)
        return false;
    const QStringList chosen = fileDialog.selectedFiles();
    if (chosen.isEmpty())
        return false;
    dialog.FileName = QDir::toNativeSeparators(chosen.first());
    return true;
}

} // namespace

bool QtDialogService::ShowOpen(CommonDialog& dialog)
{
    return showFileDialog(dialog, QFileDialog::AcceptOpen);
}

bool QtDialogService::ShowSave(CommonDialog& dialog)
{
    return showFileDialog(dialog, QFileDialog::AcceptSave);
}

void QtDialogService::MsgBox(const QString& text)
{
    QMessageBox box(QMessageBox::NoIcon, QCoreApplication::applicationName(), text, QMessageBox::Ok,
                    QApplication::activeWindow());
    box.exec();
}

QString QtDialogService::InputBox(const QString& prompt, const QString& defaultText)
{
    bool ok = false;
    const QString answer =
        QInputDialog::getText(QApplication::activeWindow(), QCoreApplication::applicationName(),
                              prompt, QLineEdit::Normal, defaultText, &ok);
    return ok ? answer : QString();
}
