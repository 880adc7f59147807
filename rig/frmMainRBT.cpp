// SPDX-License-Identifier: GPL-3.0-or-later
// `frmMainRBT`: the files (New, Open, Save), the fill of the model's lists and of the
// document into the controls, and the general information. A failed New or Open leaves the
// window as it was: the new document, its scan and its lists replace the shown ones only
// once nothing can fail any more, so every row keeps its record.

#include "rig/frmMainRBT.h"

#include "foundation/Limits.h"
#include "foundation/controls/CommandButton.h"
#include "foundation/controls/DialogService.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "rig/frmNewRBT.h"

#include <utility>

namespace {

// The compiled model and its text form differ in the last character of the path alone
// ("hero.ltb" and "hero.lta"); the extension is not looked at.
QString WithLastCharacter(const QString& path, QChar last)
{
    return path.chopped(path.isEmpty() ? 0 : 1) + last;
}

QString ModelMessage(const QString& strModelFile)
{
    return QStringLiteral("Cannot open the model ") + strModelFile;
}

} // namespace

frmMainRBT::frmMainRBT(DialogService& dialogs, SuiteLinks* links)
    : ManagerFrame(Manager::RBT, dialogs, links)
{
    // A fixed border: no maximise button and no resizing.
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint);
    createControls();
    createMenus();
    connectEvents();
    FinishSetUp({{Manager::SSF, QStringLiteral("SFF Manager")},
                 {Manager::TSL, QStringLiteral("TSL Manager")}});
    setFixedSize(size());
}

frmMainRBT::~frmMainRBT() = default;

// --- the fill of the controls ---

void frmMainRBT::FillModelLists()
{
    // Both lists are emptied first, so a model without one of its lists never shows the
    // names of an earlier model; the fill stops at the first list the model lacks.
    lstAnims->Clear();
    lstNodes->Clear();
    const std::pair<const LtaNameList*, ListBox*> fills[] = {{&m_model.strAnimations, lstAnims},
                                                             {&m_model.strNodes, lstNodes}};
    for (const auto& [names, list] : fills) {
        if (names->isEmpty()) {
            m_dialogs.MsgBox(ModelMessage(strModelFile) +
                             QStringLiteral(". Try opening the .lta file in ModelEdit and save "
                                            "it from there."));
            return;
        }
        for (qsizetype i = 0; i < names->size(); ++i)
            list->AddItem(names->at(i));
    }
}

void frmMainRBT::FillDocument()
{
    // The texture and bitmap boxes raise Change, which writes the same text back.
    txtModel->setText(objRBT->Model);
    txtName->setText(objRBT->Name);
    txtBitmap->setText(objRBT->Icon);
    txtTexture->setText(objRBT->Texture);
    lstAnimations->Clear();
    for (qint16 i = 0; i < objRBT->NumAnimations(); ++i)
        lstAnimations->AddItem(AnimationRowText(*objRBT->Animations(i)));
    lstJoints->Clear();
    for (qint16 i = 0; i < objRBT->NumJoints(); ++i)
        lstJoints->AddItem(JointRowText(*objRBT->Joints(i)));
}

// --- the File menu ---

void frmMainRBT::menNewRBT_Click()
{
    if (!m_newRBT)
        m_newRBT = std::make_unique<frmNewRBT>(m_dialogs, this);
    m_newRBT->ShowModal();
    if (!m_newRBT->blnOk) {
        m_newRBT.reset(); // refused: the next New starts with empty boxes
        return;
    }
    auto made = std::make_unique<clsRBT>();
    made->Name = m_newRBT->RBTName();
    const QString modelFile = m_newRBT->ModelPath();
    made->Model = WithLastCharacter(modelFile, u'b');
    LtaScanner scan;
    if (!scan.ScanModel(modelFile)) {
        m_dialogs.MsgBox(ModelMessage(modelFile));
        return;
    }
    objRBT = std::move(made);
    strModelFile = modelFile;
    m_model = std::move(scan);
    FillModelLists();
    FillDocument();
    strRBTFile.clear();
    DocumentIsNew();
}

void frmMainRBT::menOpenRBT_Click()
{
    if (const std::optional<QString> strFileName = ChooseDocument())
        OpenRBT(*strFileName);
}

bool frmMainRBT::OpenRBT(const QString& strFileName)
{
    auto loaded = std::make_unique<clsRBT>();
    if (!loaded->Load(mdlGeneral::strCurrentDir + strFileName)) {
        ReportOpenFailure(strFileName);
        return false;
    }
    const QString modelFile = WithLastCharacter(loaded->Model, u'a');
    LtaScanner scan;
    const bool scanned = scan.ScanModel(modelFile);
    if (scanned) {
        // An animation is stored by its index in the model's list; its model name is looked
        // up again, and an index the model does not have means the model has changed.
        for (qint16 i = 0; i < loaded->NumAnimations(); ++i) {
            clsAnimation& animation = *loaded->Animations(i);
            bool isNumber = false;
            const int index = animation.Id.toInt(&isNumber);
            if (!isNumber) {
                reportModelChanged(strFileName, QStringLiteral("The animation Id \"%1\" is not "
                                                               "a number.")
                                                    .arg(animation.Id));
                return false;
            }
            if (index < 0 || index >= scan.strAnimations.size()) {
                reportModelChanged(
                    strFileName,
                    QStringLiteral("The model has no animation with the Id %1.").arg(animation.Id));
                return false;
            }
            animation.Anim = scan.strAnimations.at(index);
        }
    }
    objRBT = std::move(loaded);
    strModelFile = modelFile;
    if (scanned) {
        m_model = std::move(scan);
        FillModelLists();
        FillDocument();
    } else {
        // The document opens without its model: the model's lists stay as they were, and
        // every animation row ends in empty brackets.
        FillDocument();
        m_dialogs.MsgBox(ModelMessage(strModelFile));
    }
    strRBTFile = mdlGeneral::GetFileName(strFileName);
    DocumentOpened(strRBTFile);
    return true;
}

void frmMainRBT::reportModelChanged(const QString& strFileName, const QString& description)
{
    m_dialogs.MsgBox(QStringLiteral("Cannot open the RBT file ") + mdlGeneral::strCurrentDir +
                     strFileName + u'\n' + description + u'\n' +
                     QStringLiteral("Please check that the model file has not changed"));
}

void frmMainRBT::menSaveRBT_Click()
{
    if (!objRBT)
        return; // nothing to save, no dialog
    SaveDocument(strRBTFile, [this](const QString& file, QString* why) {
        // The paths inside the file are written relative to the base directory, so a first
        // save sets it before writing.
        mdlGeneral::TakeCurrentDirFrom(file);
        return objRBT->Save(file, why);
    });
}

// --- general information ---

void frmMainRBT::chooseTexture()
{
    chooseInto(QStringLiteral("Texture Files (*.dtx)|*.dtx"), *textureChooser, *txtTexture);
}

void frmMainRBT::chooseBitmap()
{
    chooseInto(QStringLiteral("Bitmap Files (*.bmp)|*.bmp"), *bitmapChooser, *txtBitmap);
}

void frmMainRBT::chooseInto(const QString& filter, CommandButton& chooser, TextBox& box)
{
    if (!objRBT)
        return; // a texture or bitmap belongs to a document
    // The box's Change carries the path into the document; a cancel leaves it as it was.
    if (const QString file = CommonDialog1.PickFile(filter, chooser); !file.isEmpty())
        box.setText(file);
}

void frmMainRBT::txtTexture_Change()
{
    if (objRBT)
        objRBT->Texture = txtTexture->Text();
}

void frmMainRBT::txtBitmap_Change()
{
    if (objRBT)
        objRBT->Icon = txtBitmap->Text();
}

// --- shared by the commands ---

bool frmMainRBT::roomForOneMore(qint16 listCount) const
{
    // The file's root carries at most 32768 children, joints and animations together.
    return listCount < Limits::MaxRecords &&
           objRBT->NumJoints() + objRBT->NumAnimations() < Limits::MaxChildNodes;
}
