// SPDX-License-Identifier: GPL-3.0-or-later
// The sound page: sounds and dialog lines with their `.wav` file, on the page mechanism of
// frmMainSSF_pages.cpp. The type never changes `File` here; only the file format stores a
// dialog line's file as its stem.

#include "foundation/controls/CommandButton.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/OptionButton.h"
#include "foundation/controls/TextBox.h"
#include "stage/frmMainSSF.h"

frmMainSSF::Page<clsSound> frmMainSSF::SoundPage()
{
    return {lstSounds,       soundDetail,        &clsSSF::AddSound,         &clsSSF::DeleteSound,
            &clsSSF::Sounds, &clsSSF::NumSounds, &frmMainSSF::SoundRowText, &frmMainSSF::ShowSound};
}

void frmMainSSF::connectSoundPage()
{
    connectPage(SoundPage(), addSoundButton, menDeleteSound,
                {{txtNameSound, &clsSound::Name}, {txtFileSound, &clsSound::File}});
    connect(soundFileChooser, &CommandButton::Click, this, &frmMainSSF::chooseSoundFile);
    connect(chkSound, &OptionButton::Click, this, &frmMainSSF::chkType_Click);
    connect(chkDialog, &OptionButton::Click, this, &frmMainSSF::chkType_Click);
}

void frmMainSSF::ShowSound(qint16 index)
{
    const std::shared_ptr<clsSound> sound = objSSF ? objSSF->Sounds(index) : nullptr;
    if (!sound)
        return;
    txtNameSound->setText(sound->Name);
    txtFileSound->setText(sound->File);
    // A type of any other text, read from a file, leaves the options as they are; the
    // record keeps it until an option is clicked.
    if (sound->TypeSound == u"sound")
        chkSound->setValue(true);
    else if (sound->TypeSound == u"dialog")
        chkDialog->setValue(true);
}

void frmMainSSF::chooseSoundFile()
{
    // Unlike the puppet's chooser, this one leaves the base directory alone.
    ChooseFile(QStringLiteral("WAV Files (*.wav)|*.wav"), *soundFileChooser,
               QStringLiteral("..\\rez\\sounds\\"), *txtFileSound);
}

void frmMainSSF::chkType_Click()
{
    // Both options run this, and both read chkSound. With no row selected the option
    // stays as clicked and reaches no record.
    const int index = lstSounds->ListIndex();
    const std::shared_ptr<clsSound> sound =
        objSSF && index != -1 ? objSSF->Sounds(static_cast<qint16>(index)) : nullptr;
    if (!sound)
        return;
    sound->TypeSound = chkSound->Value() ? QStringLiteral("sound") : QStringLiteral("dialog");
    UpdateRow(SoundPage(), static_cast<qint16>(index));
}
