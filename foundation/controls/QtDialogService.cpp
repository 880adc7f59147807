// SPDX-License-Identifier: GPL-3.0-or-later
#include "foundation/controls/QtDialogService.h"

#include "foundation/controls/CommonDialog.h"
#include "foundation/controls/ControlCharacterValidator.h"

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
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
    QInputDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(QCoreApplication::applicationName());
    dialog.setLabelText(prompt);
    dialog.setInputMode(QInputDialog::TextInput);
    // The answer names a record, which a saved file must be able to carry: the box drops
    // control characters as they are typed or pasted, and from the default too.
    if (auto* edit = dialog.findChild<QLineEdit*>())
        edit->setValidator(new ControlCharacterValidator(edit));
    dialog.setTextValue(defaultText);
    return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
}

bool QtDialogService::AskYesNo(const QString& question)
{
    QMessageBox box(QMessageBox::Question, QCoreApplication::applicationName(), question,
                    QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}
