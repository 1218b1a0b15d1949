#include <tavex/TavexApplication>

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Quorvex;

namespace {

const QLocale German(QLocale::German, QLocale::Germany);

} // namespace

class TestTavexApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void translationPaths()
    {
        const QString folder = QCoreApplication::applicationDirPath();
        QCOMPARE(TavexApplication::translationPaths(),
            (QStringList{folder, folder + QStringLiteral("/translations"), QStringLiteral(":/"),
                QStringLiteral(":/translations")}));
    }

    void translationLoad()
    {
        QTranslator translator;
        QVERIFY(!TavexApplication::translationLoad(&translator, QString(), German));
        QVERIFY(!TavexApplication::translationLoad(nullptr, QStringLiteral("tavex"), German));
        QVERIFY(!TavexApplication::qtTranslationLoad(nullptr, QStringLiteral("tavex"), German));
        QVERIFY(TavexApplication::translationLoad(&translator, QStringLiteral("tavex"), German));
        QCOMPARE(translator.filePath(), QStringLiteral(":/translations/tavex_de.qm"));
        QVERIFY(!TavexApplication::translationLoad(&translator, QStringLiteral("missing"), German));
    }

    // A file beside the program wins over the compiled-in one of the same name.
    void programFolderComesFirst()
    {
        const QString name =
            QCoreApplication::applicationDirPath() + QStringLiteral("/tavex_de.qm");
        QVERIFY(QFile::copy(QStringLiteral(":/translations/tavex_sv.qm"), name));
        QTranslator translator;
        const bool loaded =
            TavexApplication::qtTranslationLoad(&translator, QStringLiteral("tavex"), German);
        QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner);
        QVERIFY(QFile::remove(name));
        QVERIFY(loaded);
        QCOMPARE(translator.filePath(), name);
    }

    void initLoadsWhatIsRegistered()
    {
        const auto before = TavexApplication::translations();
        TavexApplication::translationRegister(QStringLiteral("tavex"));
        TavexApplication::translationRegister(QStringLiteral("missing"));
        TavexApplication::init(German);
        QCOMPARE(QLocale(), German);
        const auto added = TavexApplication::translations().mid(before.size());
        QCOMPARE(added.size(), 3); // Qt's own, then the registered ones, loaded or not.
        QCOMPARE(added.at(1)->filePath(), QStringLiteral(":/translations/tavex_de.qm"));
        QVERIFY(added.at(2)->isEmpty());

        TavexApplication::init(QLocale(QLocale::Polish));
        const auto all = TavexApplication::translations();
        QCOMPARE(all.mid(0, before.size() + 3), before + added);
        QCOMPARE(all.size(), before.size() + 6);
    }
};

QTEST_GUILESS_MAIN(TestTavexApplication)
#include "tst_tavexapplication.moc"
