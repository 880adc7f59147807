#include "foundation/controls/QtDialogService.h"

#include "foundation/controls/CommonDialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QMessageBox>
#include <QScreen>
#include <QTreeView>

namespace {

bool showFileDialog(CommonDialog& dialog, QFileDialog::AcceptMode mode)
{
    QFileDialog fileDialog(QApplication::activeWindow());
    // Qt's own dialog on every desktop, so the folder, the size and the answers by keyboard
    // are the same everywhere.
    fileDialog.setOption(QFileDialog::DontUseNativeDialog, true);
    fileDialog.setAcceptMode(mode);
    fileDialog.setFileMode(QFileDialog::AnyFile);
    fileDialog.setOption(QFileDialog::DontConfirmOverwrite, true);
    const QString filter = CommonDialog::QtFilter(dialog.Filter);
    if (!filter.isEmpty())
        fileDialog.setNameFilter(filter);
    fileDialog.setDefaultSuffix(CommonDialog::QtDefaultSuffix(dialog.DefaultExt));
    fileDialog.setDirectory(dialog.Folder());
    // A bare name is proposed in that folder; a full path opens its own.
    if (!dialog.FileName.isEmpty())
        fileDialog.selectFile(dialog.FileName);
    // The detail view with its size, type and date columns whole and the rest for the name,
    // within the screen.
    fileDialog.setViewMode(QFileDialog::Detail);
    if (auto* view = fileDialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        QHeaderView* header = view->header();
        header->setStretchLastSection(false);
        header->setSectionResizeMode(QHeaderView::ResizeToContents);
        header->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    QSize size(880, 520);
    if (const QScreen* screen = fileDialog.screen())
        size = size.boundedTo(screen->availableSize());
    fileDialog.resize(size);
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

bool QtDialogService::AskYesNo(const QString& question)
{
    QMessageBox box(QMessageBox::Question, QCoreApplication::applicationName(), question,
                    QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}
