// SPDX-License-Identifier: GPL-3.0-or-later
// The page mechanism that the puppet, sound and camera pages share. Row i of a page's list
// shows record i of its document list, and the selected row (`ListIndex`) is the record under
// edit: no other variable says which record that is, so each step reads it anew. The document
// is the only store: every edit goes into the record at once, and its row follows.

#include "foundation/Limits.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/Menu.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "stage/frmMainSSF.h"

template <class Record>
void frmMainSSF::connectPage(const Page<Record>& page, CommandButton* addButton, Menu* deleteEntry,
                             std::initializer_list<FieldBox<Record>> fields)
{
    connect(addButton, &CommandButton::Click, this, [this, page] { AddRecord(page); });
    connect(page.List, &ListBox::Click, this, [this, page] { SelectRow(page); });
    connect(page.List, &ListBox::KeyDown, this, [this, page](int KeyCode) {
        if (KeyCode == ListBox::KeyCodeDelete)
            DeleteRow(page); // whatever the shift state
    });
    connect(deleteEntry, &Menu::Click, this, [this, page] { DeleteRow(page); });
    for (const FieldBox<Record>& fieldBox : fields) {
        const TextBox* box = fieldBox.first;
        QString Record::*field = fieldBox.second;
        connect(box, &TextBox::Change, this,
                [this, page, box, field] { WriteField(page, field, *box); });
    }
}

template <class Record> void frmMainSSF::AddRecord(const Page<Record>& page)
{
    if (!objSSF)
        return;
    // Every saved file must load again: the root of a scene holds at most 32768 children,
    // and a list at most 32767 records (where the document add does nothing).
    const int total = objSSF->NumPuppets() + objSSF->NumSounds() + objSSF->NumCameras();
    if (total >= Limits::MaxChildNodes)
        return;
    clsSSF& document = *objSSF;
    const qint16 before = (document.*page.Count)();
    (document.*page.DocumentAdd)(std::make_shared<Record>());
    if ((document.*page.Count)() == before)
        return;
    // No dialog opens, for all the dots in the caption. Selecting the new row shows it.
    page.List->AddItem((this->*page.RowText)(static_cast<qint16>(page.List->ListCount())));
    page.List->setListIndex(page.List->ListCount() - 1);
    RefreshPlan();
}

template <class Record> void frmMainSSF::SelectRow(const Page<Record>& page)
{
    const int index = page.List->ListIndex();
    if (index == -1)
        return;
    // Each box written raises its Change, which writes the same text back into the record.
    (this->*page.DetailFill)(static_cast<qint16>(index));
    page.DetailFrame->setEnabled(true);
    page.DetailFrame->ShowOrphaned(false);
}

template <class Record>
void frmMainSSF::WriteField(const Page<Record>& page, QString Record::*field, const TextBox& box)
{
    // With no row selected the text stays in the box and reaches no record.
    const int index = page.List->ListIndex();
    if (index == -1 || !objSSF)
        return;
    if (const std::shared_ptr<Record> record = ((*objSSF).*page.RecordByIndex)(index)) {
        (*record).*field = box.Text();
        UpdateRow(page, static_cast<qint16>(index));
        RefreshPlan();
    }
}

template <class Record> void frmMainSSF::DeleteRow(const Page<Record>& page)
{
    const int index = page.List->ListIndex();
    if (index == -1 || !objSSF)
        return;
    // No question is asked. The records behind it are renumbered; afterwards no row is
    // selected and the detail controls go on showing the deleted record.
    ((*objSSF).*page.DocumentDelete)(static_cast<qint16>(index));
    page.List->RemoveItem(index);
    page.DetailFrame->ShowOrphaned(true);
    RefreshPlan();
}

template <class Record> void frmMainSSF::UpdateRow(const Page<Record>& page, qint16 index)
{
    // Only the changed row is written, so an edit costs the same on a long list.
    page.List->setList(index, (this->*page.RowText)(index));
}

QString frmMainSSF::ChooseFile(const QString& filter, CommandButton& chooser, const QString& prefix,
                               TextBox& target)
{
    const QString file = CommonDialog1.PickFile(filter, chooser);
    // The directory picked in is dropped: the file is recorded as lying under the prefix.
    // The box's Change carries the text into the selected record; a cancel changes nothing.
    if (!file.isEmpty())
        target.setText(prefix + mdlGeneral::GetFileName(file));
    return file;
}

// The three pages.
template void frmMainSSF::connectPage(const Page<clsPuppet>&, CommandButton*, Menu*,
                                      std::initializer_list<FieldBox<clsPuppet>>);
template void frmMainSSF::connectPage(const Page<clsSound>&, CommandButton*, Menu*,
                                      std::initializer_list<FieldBox<clsSound>>);
template void frmMainSSF::connectPage(const Page<clsCamera>&, CommandButton*, Menu*,
                                      std::initializer_list<FieldBox<clsCamera>>);
template void frmMainSSF::UpdateRow(const Page<clsSound>&, qint16);
