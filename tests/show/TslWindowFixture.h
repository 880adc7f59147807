#pragma once
// The fixture of the window tests of Part 4.2: the real `frmMainTSL` with scripted dialogs and
// a driver, made afresh for each test in a fresh directory, with `strCurrentDir` emptied
// before and after each test.

#include "foundation/controls/CommandButton.h"
#include "foundation/controls/Frame.h"
#include "foundation/controls/ListBox.h"
#include "foundation/controls/TextBox.h"
#include "foundation/mdlGeneral.h"
#include "show/frmMainTSL.h"
#include "tests/support/ScriptedDialogService.h"
#include "tests/support/WindowDriver.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace tslwindow {

using namespace Qt::StringLiterals;

inline const QString DesignedCaption = u"Troupe Show Listing Manager"_s;
inline const QString TslFilter = u"Troupe Show Listing Files (*.tsl)|*.tsl"_s;
inline const QString SsfFilter = u"Stage Scene Files (*.ssf)|*.ssf"_s;
inline const QString DatFilter = u"LithTech world dat file (*.dat)|*.dat"_s;
inline const QString Blank33 = QString(33, u' ');

// Two scenes, "A" and "B"; the listing that most tests open first, as "two.tsl".
inline constexpr char TwoScenes[] = R"(<play title="Two" mainworld="..\rez\worlds\park">)"
                                    R"(<scene id="0" name="A" ssf="..\\rez\\a.ssf"/>)"
                                    R"(<scene id="1" name="B" ssf="..\\rez\\b.ssf"/></play>)";

// The window, its scripted dialogs and the driver.
struct Session {
    ScriptedDialogService dialogs;
    frmMainTSL window{dialogs};
    WindowDriver ui{&window};

    ListBox* list() const { return ui.listBox(u"lstScenes"_s); }
    TextBox* box(const QString& name) const { return ui.textBox(name); }
    Frame* frame(const QString& name) const { return ui.find<Frame>(name); }
    QString caption() const { return window.windowTitle(); }
    const clsTSL* doc() const { return window.Document(); }
    QStringList rows() const
    {
        QStringList texts;
        for (int i = 0; i < list()->ListCount(); ++i)
            texts << list()->List(i);
        return texts;
    }
    // File > Open with the dialog answering `fileName`.
    void open(const QString& fileName)
    {
        dialogs.answerFile(fileName);
        ui.trigger(u"menOpenTSL"_s);
    }
    // File > Save with the dialog answering `fileName`.
    void save(const QString& fileName)
    {
        dialogs.answerFile(fileName);
        ui.trigger(u"menSaveTSL"_s);
    }
    // "Add scene..." and a name typed key by key.
    void addScene(const QString& name)
    {
        ui.click(u"Command1"_s);
        ui.type(u"txtName"_s, name);
    }
};

// Called by the init() and cleanup() of each test class.
class Fixture {
protected:
    void setUp()
    {
        mdlGeneral::strCurrentDir.clear();
        QCoreApplication::setApplicationName(u"Troupe"_s);
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        writeFile(path(u"two.tsl"_s), TwoScenes);
        m_session = std::make_unique<Session>();
    }
    void tearDown()
    {
        if (m_session) {
            const qsizetype left = m_session->dialogs.pendingAnswers();
            m_session.reset();
            QCOMPARE(left, 0); // every scripted answer was asked for
        }
        m_dir.reset();
        mdlGeneral::strCurrentDir.clear();
    }

    QString path(const QString& name) const { return m_dir->filePath(name); }
    // The base directory as the open dialog sets it: the directory with its separator.
    QString dirOf(const QString& name) const { return mdlGeneral::GetDirectory(path(name)); }

    static void writeFile(const QString& file, const QByteArray& bytes)
    {
        QFile f(file);
        QVERIFY2(f.open(QIODevice::WriteOnly), qPrintable(file));
        QCOMPARE(f.write(bytes), bytes.size());
    }
    static QByteArray readFile(const QString& file)
    {
        QFile f(file);
        if (!f.open(QIODevice::ReadOnly))
            return "<unreadable>";
        return f.readAll();
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Session> m_session;
};

} // namespace tslwindow
