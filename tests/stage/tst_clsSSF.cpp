// Part 3.1: the stage scene document, its records and its three lists.

#include "stage/clsSSF.h"

#include <QtTest>

namespace {

// The three lists are alike (Part 3.1): each list test runs on all three through these.
enum class ListKind { Puppets, Sounds, Cameras };

void addRecord(clsSSF& ssf, ListKind kind)
{
    switch (kind) {
    case ListKind::Puppets: ssf.AddPuppet(std::make_shared<clsPuppet>()); break;
    case ListKind::Sounds: ssf.AddSound(std::make_shared<clsSound>()); break;
    case ListKind::Cameras: ssf.AddCamera(std::make_shared<clsCamera>()); break;
    }
}

void deleteRecord(clsSSF& ssf, ListKind kind, qint16 i)
{
    switch (kind) {
    case ListKind::Puppets: ssf.DeletePuppet(i); break;
    case ListKind::Sounds: ssf.DeleteSound(i); break;
    case ListKind::Cameras: ssf.DeleteCamera(i); break;
    }
}

qint16 countOf(const clsSSF& ssf, ListKind kind)
{
    switch (kind) {
    case ListKind::Puppets: return ssf.NumPuppets();
    case ListKind::Sounds: return ssf.NumSounds();
    case ListKind::Cameras: return ssf.NumCameras();
    }
    return -1;
}

// The Ids of a list in order.
QStringList idsOf(const clsSSF& ssf, ListKind kind)
{
    QStringList ids;
    for (qint16 i = 0; i < countOf(ssf, kind); ++i) {
        switch (kind) {
        case ListKind::Puppets: ids << ssf.Puppets(i)->Id; break;
        case ListKind::Sounds: ids << ssf.Sounds(i)->Id; break;
        case ListKind::Cameras: ids << ssf.Cameras(i)->Id; break;
        }
    }
    return ids;
}

// The tag and the smallest complete element of each kind, with the given id.
QString elementOf(ListKind kind, const QString& id)
{
    switch (kind) {
    case ListKind::Puppets:
        return QStringLiteral(R"(<puppet id="%1" rbt="" position=",," scale=",," orientation=",,"/>)")
            .arg(id);
    case ListKind::Sounds:
        return QStringLiteral(R"(<sound id="%1" name="" type="sound" file=""/>)").arg(id);
    case ListKind::Cameras:
        return QStringLiteral(R"(<camera id="%1" name="" position=",," orientation=",,"/>)")
            .arg(id);
    }
    return {};
}

void addListRows()
{
    QTest::addColumn<ListKind>("kind");
    QTest::newRow("puppets") << ListKind::Puppets;
    QTest::newRow("sounds") << ListKind::Sounds;
    QTest::newRow("cameras") << ListKind::Cameras;
}

} // namespace

Q_DECLARE_METATYPE(ListKind)

class tst_clsSSF : public QObject {
    Q_OBJECT

private slots:
    // --- Part 3.1, Edge cases worth testing ---
    void newSsfHasEmptyListsAndEmptyProperties();
    void newRecordsShowTheirInitialValues();
    void addingThreeRecordsGivesIds012AndDeletingIndex1Renumbers_data() { addListRows(); }
    void addingThreeRecordsGivesIds012AndDeletingIndex1Renumbers();
    void loadedIds379AreRenumberedOnlyBehindADelete_data() { addListRows(); }
    void loadedIds379AreRenumberedOnlyBehindADelete();
    void deletingCameraZeroLeavesMainCameraNamingTheNextCamera();
    void deletingTheLastRemainingRecordLeavesAnEmptyListAndTheOthersAlone_data() { addListRows(); }
    void deletingTheLastRemainingRecordLeavesAnEmptyListAndTheOthersAlone();
    void textThatIsNoNumberOrHoldsACommaReadsBackUnchanged();

    // --- the list interface of the common brief and design 5 and 7 ---
    void addKeepsTheVeryObjectAndTheGetterHandsItOut();
    void indexOutOfRangeReadsNullAndDeletesNothing_data() { addListRows(); }
    void indexOutOfRangeReadsNullAndDeletesNothing();
    void addAtTheLimitOf32767RecordsDoesNothing_data() { addListRows(); }
    void addAtTheLimitOf32767RecordsDoesNothing();
    void addOfANullRecordDoesNothing();
};

void tst_clsSSF::newSsfHasEmptyListsAndEmptyProperties()
{
    const clsSSF ssf;
    QCOMPARE(ssf.NumPuppets(), qint16(0));
    QCOMPARE(ssf.NumSounds(), qint16(0));
    QCOMPARE(ssf.NumCameras(), qint16(0));
    QCOMPARE(ssf.World, QString());
    QCOMPARE(ssf.MainCamera, QString());
    QCOMPARE(ssf.Nickname, QString());
    QCOMPARE(ssf.Server, QString());
    QCOMPARE(ssf.Port, QString());
}

void tst_clsSSF::newRecordsShowTheirInitialValues()
{
    const clsPuppet p;
    QCOMPARE(p.Id, QString());
    QCOMPARE(p.RBT, QString());
    const QStringList puppetNumbers{p.PositionX, p.PositionY, p.PositionZ,
                                    p.ScaleX, p.ScaleY, p.ScaleZ,
                                    p.OrientationX, p.OrientationY, p.OrientationZ};
    QCOMPARE(puppetNumbers, (QStringList{"0.0", "0.0", "0.0", "1.0", "1.0", "1.0",
                                         "0.0", "0.0", "0.0"}));

    const clsCamera c;
    QCOMPARE(c.Id, QString());
    QCOMPARE(c.Name, QString());
    const QStringList cameraNumbers{c.PositionX, c.PositionY, c.PositionZ,
                                    c.OrientationX, c.OrientationY, c.OrientationZ};
    QCOMPARE(cameraNumbers, QStringList(6, QStringLiteral("0.0")));

    const clsSound s;
    QCOMPARE(s.Id, QString());
    QCOMPARE(s.File, QString());
    QCOMPARE(s.Name, QString());
    QCOMPARE(s.TypeSound, QStringLiteral("sound"));
}

void tst_clsSSF::addingThreeRecordsGivesIds012AndDeletingIndex1Renumbers()
{
    QFETCH(ListKind, kind);
    clsSSF ssf;
    for (int i = 0; i < 3; ++i)
        addRecord(ssf, kind);
    QCOMPARE(idsOf(ssf, kind), (QStringList{"0", "1", "2"}));

    // Mark the records so their order can be seen after the renumbering.
    QList<const void*> before;
    for (qint16 i = 0; i < 3; ++i) {
        switch (kind) {
        case ListKind::Puppets: before << ssf.Puppets(i).get(); break;
        case ListKind::Sounds: before << ssf.Sounds(i).get(); break;
        case ListKind::Cameras: before << ssf.Cameras(i).get(); break;
        }
    }

    deleteRecord(ssf, kind, 1);
    QCOMPARE(countOf(ssf, kind), qint16(2));
    QCOMPARE(idsOf(ssf, kind), (QStringList{"0", "1"}));
    QList<const void*> after;
    for (qint16 i = 0; i < 2; ++i) {
        switch (kind) {
        case ListKind::Puppets: after << ssf.Puppets(i).get(); break;
        case ListKind::Sounds: after << ssf.Sounds(i).get(); break;
        case ListKind::Cameras: after << ssf.Cameras(i).get(); break;
        }
    }
    QCOMPARE(after, (QList<const void*>{before[0], before[2]}));
}

void tst_clsSSF::loadedIds379AreRenumberedOnlyBehindADelete()
{
    QFETCH(ListKind, kind);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("ids.ssf"));
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QString text = QStringLiteral(R"(<scene world="">)") + elementOf(kind, "3")
            + elementOf(kind, "7") + elementOf(kind, "9") + QStringLiteral("</scene>");
        file.write(text.toUtf8());
    }
    clsSSF loaded;
    QVERIFY(loaded.Load(path));
    QCOMPARE(idsOf(loaded, kind), (QStringList{"3", "7", "9"}));

    clsSSF deleteLast;
    QVERIFY(deleteLast.Load(path));
    deleteRecord(deleteLast, kind, 2);
    QCOMPARE(idsOf(deleteLast, kind), (QStringList{"3", "7"}));

    clsSSF deleteFirst;
    QVERIFY(deleteFirst.Load(path));
    deleteRecord(deleteFirst, kind, 0);
    QCOMPARE(idsOf(deleteFirst, kind), (QStringList{"0", "1"}));

    clsSSF addOne;
    QVERIFY(addOne.Load(path));
    addRecord(addOne, kind);
    QCOMPARE(idsOf(addOne, kind), (QStringList{"3", "7", "9", "3"}));
}

void tst_clsSSF::deletingCameraZeroLeavesMainCameraNamingTheNextCamera()
{
    clsSSF ssf;
    for (const QString& name : {QStringLiteral("front"), QStringLiteral("side"), QStringLiteral("top")}) {
        auto c = std::make_shared<clsCamera>();
        c->Name = name;
        ssf.AddCamera(c);
    }
    ssf.MainCamera = QStringLiteral("1");
    QCOMPARE(ssf.Cameras(1)->Name, QStringLiteral("side"));

    ssf.DeleteCamera(0);
    QCOMPARE(ssf.MainCamera, QStringLiteral("1"));
    QCOMPARE(ssf.Cameras(1)->Id, QStringLiteral("1"));
    QCOMPARE(ssf.Cameras(1)->Name, QStringLiteral("top")); // the camera that had "2"

    // Deleting a puppet or a sound leaves it alone too.
    ssf.AddPuppet(std::make_shared<clsPuppet>());
    ssf.AddSound(std::make_shared<clsSound>());
    ssf.DeletePuppet(0);
    ssf.DeleteSound(0);
    QCOMPARE(ssf.MainCamera, QStringLiteral("1"));
}

void tst_clsSSF::deletingTheLastRemainingRecordLeavesAnEmptyListAndTheOthersAlone()
{
    QFETCH(ListKind, kind);
    clsSSF ssf;
    for (const ListKind other : {ListKind::Puppets, ListKind::Sounds, ListKind::Cameras}) {
        addRecord(ssf, other);
        if (other != kind)
            addRecord(ssf, other);
    }
    deleteRecord(ssf, kind, 0);
    for (const ListKind other : {ListKind::Puppets, ListKind::Sounds, ListKind::Cameras}) {
        const QStringList expected = other == kind ? QStringList{} : QStringList{"0", "1"};
        QCOMPARE(idsOf(ssf, other), expected);
    }
}

void tst_clsSSF::textThatIsNoNumberOrHoldsACommaReadsBackUnchanged()
{
    clsSSF ssf;
    ssf.AddPuppet(std::make_shared<clsPuppet>());
    ssf.AddCamera(std::make_shared<clsCamera>());
    const QString texts[] = {QStringLiteral("abc"), QStringLiteral("1,5"), QStringLiteral(" 1 "),
                             QStringLiteral("1"), QString(), QStringLiteral("1e400")};
    for (const QString& text : texts) {
        ssf.Puppets(0)->PositionX = text;
        ssf.Puppets(0)->ScaleZ = text;
        ssf.Cameras(0)->OrientationY = text;
        ssf.Port = text;
        QCOMPARE(ssf.Puppets(0)->PositionX, text);
        QCOMPARE(ssf.Puppets(0)->ScaleZ, text);
        QCOMPARE(ssf.Cameras(0)->OrientationY, text);
        QCOMPARE(ssf.Port, text);
    }
}

void tst_clsSSF::addKeepsTheVeryObjectAndTheGetterHandsItOut()
{
    clsSSF ssf;
    const auto p = std::make_shared<clsPuppet>();
    const auto s = std::make_shared<clsSound>();
    const auto c = std::make_shared<clsCamera>();
    p->Id = QStringLiteral("overwritten");
    ssf.AddPuppet(p);
    ssf.AddSound(s);
    ssf.AddCamera(c);
    QCOMPARE(p->Id, QStringLiteral("0")); // the Id held before is overwritten
    QCOMPARE(ssf.Puppets(0), p);
    QCOMPARE(ssf.Sounds(0), s);
    QCOMPARE(ssf.Cameras(0), c);

    // A field written through the returned record is written in the document.
    ssf.Puppets(0)->RBT = QStringLiteral("..\\rez\\bear.rbt");
    ssf.Sounds(0)->TypeSound = QStringLiteral("dialog");
    ssf.Cameras(0)->Name = QStringLiteral("front");
    QCOMPARE(p->RBT, QStringLiteral("..\\rez\\bear.rbt"));
    QCOMPARE(s->TypeSound, QStringLiteral("dialog"));
    QCOMPARE(c->Name, QStringLiteral("front"));
}

void tst_clsSSF::indexOutOfRangeReadsNullAndDeletesNothing()
{
    QFETCH(ListKind, kind);
    clsSSF ssf;
    addRecord(ssf, kind);
    addRecord(ssf, kind);
    for (const qint16 bad : {qint16(-1), qint16(2), qint16(32767), qint16(-32768)}) {
        switch (kind) {
        case ListKind::Puppets: QVERIFY(!ssf.Puppets(bad)); break;
        case ListKind::Sounds: QVERIFY(!ssf.Sounds(bad)); break;
        case ListKind::Cameras: QVERIFY(!ssf.Cameras(bad)); break;
        }
        deleteRecord(ssf, kind, bad);
        QCOMPARE(idsOf(ssf, kind), (QStringList{"0", "1"}));
    }
}

void tst_clsSSF::addAtTheLimitOf32767RecordsDoesNothing()
{
    QFETCH(ListKind, kind);
    clsSSF ssf;
    for (int i = 0; i < 32767; ++i)
        addRecord(ssf, kind);
    QCOMPARE(countOf(ssf, kind), qint16(32767));
    QCOMPARE(idsOf(ssf, kind).constLast(), QStringLiteral("32766"));

    // One more: the list stays as it was and the record is not touched.
    switch (kind) {
    case ListKind::Puppets: {
        auto p = std::make_shared<clsPuppet>();
        p->Id = QStringLiteral("mine");
        ssf.AddPuppet(p);
        QCOMPARE(p->Id, QStringLiteral("mine"));
        break;
    }
    case ListKind::Sounds: {
        auto s = std::make_shared<clsSound>();
        s->Id = QStringLiteral("mine");
        ssf.AddSound(s);
        QCOMPARE(s->Id, QStringLiteral("mine"));
        break;
    }
    case ListKind::Cameras: {
        auto c = std::make_shared<clsCamera>();
        c->Id = QStringLiteral("mine");
        ssf.AddCamera(c);
        QCOMPARE(c->Id, QStringLiteral("mine"));
        break;
    }
    }
    QCOMPARE(countOf(ssf, kind), qint16(32767));

    // A delete makes room again.
    deleteRecord(ssf, kind, 0);
    addRecord(ssf, kind);
    QCOMPARE(countOf(ssf, kind), qint16(32767));
    QCOMPARE(idsOf(ssf, kind).constLast(), QStringLiteral("32766"));
}

void tst_clsSSF::addOfANullRecordDoesNothing()
{
    clsSSF ssf;
    ssf.AddPuppet(nullptr);
    ssf.AddSound(nullptr);
    ssf.AddCamera(nullptr);
    QCOMPARE(ssf.NumPuppets(), qint16(0));
    QCOMPARE(ssf.NumSounds(), qint16(0));
    QCOMPARE(ssf.NumCameras(), qint16(0));
}

QTEST_APPLESS_MAIN(tst_clsSSF)
#include "tst_clsSSF.moc"
