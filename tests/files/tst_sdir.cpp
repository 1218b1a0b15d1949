#include <tavex/SDir>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Quorvex::SDir;

class TestDir : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void compares_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("equal");
        const auto row = [](const char *a, const char *b, bool equal) {
            QTest::newRow(a) << QString::fromUtf8(a) << QString::fromUtf8(b) << equal;
        };
        row("C:\\A\\..\\B", "c:/b", true);
        row("Straße/É", "straße/é/.", true);
        row("a/b/", "a\\b", true);
        row("//server/share", "/server/share", false);
        row("\\\\server\\share\\x\\..", "//SERVER/share", true);
        row("a/b", "a/c", false);
    }
    void compares()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(bool, equal);
        QCOMPARE(SDir::pathCompare(a, b, Qt::CaseInsensitive), equal);
        QCOMPARE(SDir::pathCompare(b, a, Qt::CaseInsensitive), equal);
        QVERIFY(!SDir::pathCompare(a + QChar(u'x'), b + QChar(u'X'), Qt::CaseSensitive));
    }

    void shortens()
    {
        const auto text = [](int from, int to) {
            QString s;
            for (int i = from; i < to; ++i)
                s.append(QChar(0x400 + i));
            return s;
        };
        const QString dots = QStringLiteral("...");
        QCOMPARE(SDir::pathShortener(text(0, 60), 20), text(0, 10) + dots + text(50, 60));
        QCOMPARE(SDir::pathShortener(text(0, 60), 21), text(0, 10) + dots + text(49, 60));
        QCOMPARE(SDir::pathShortener(text(0, 29), 20), text(0, 29));
        QCOMPARE(SDir::pathShortener(text(0, 30), 20), text(0, 10) + dots + text(20, 30));
        QCOMPARE(SDir::pathShortener(text(0, 60), -1), text(0, 60));
        for (const int width : {3, 0, -2, std::numeric_limits<int>::min()})
            QCOMPARE(SDir::pathShortener(text(0, 20), width), text(0, 5) + dots + text(15, 20));
        QCOMPARE(SDir::pathShortener(QStringLiteral("a//b/../c/"), 10), QStringLiteral("a/c"));
        QCOMPARE(SDir::removeWrongChars(QStringLiteral("?a*b:c;d/e\\f|")),
            QStringLiteral("_a_b_c_d/e\\f|"));
    }

    void uniquePaths()
    {
        const QTemporaryDir folder;
        const QString base = folder.filePath(QStringLiteral("Отчёт %1"));
        const auto next = [&](const char *suffix) {
            return SDir::uniqueEnumeratedPath(base + QLatin1String(suffix));
        };
        QCOMPARE(next(" - 7/ \n"), base);
        QVERIFY(QDir().mkdir(base));
        for (int number = 1; number < 100; ++number) {
            QCOMPARE(next(" - x"), base + QStringLiteral(" - ") + QString::number(number));
            QVERIFY(QDir().mkdir(next("")));
        }
        QCOMPARE(next("/"), base + QStringLiteral(" - 99"));
        QCOMPARE(next(" - 1/below - 2"), base + QStringLiteral(" - 1/below"));
        QCOMPARE(next(" - 1/below"), base + QStringLiteral(" - 1/below"));
    }

    void searchesAndLinks()
    {
        const QTemporaryDir folder;
        QStringList expected;
        QString deep = folder.path();
        for (const int letter : {0x5D0, 0x905, 0x4E00}) {
            // 255 bytes, the longest name; three of them make a path of more than 260.
            deep += QLatin1Char('/')
                + QString(letter < 0x800 ? 127 : 85, QChar(letter))
                      .leftJustified(letter < 0x800 ? 128 : 85, u'x');
            expected.append(deep);
        }
        QVERIFY(QDir().mkpath(deep));
        for (const char *name : {".hidden", "file.txt", "😀"}) {
            expected.append(deep + QLatin1Char('/') + QString::fromUtf8(name));
            QFile file(expected.constLast());
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        expected.append(folder.filePath(QStringLiteral("broken")));
        QVERIFY(QFile::link(folder.filePath(QStringLiteral("none")), expected.constLast()));
        QStringList found = SDir::search(folder.path(), {}, QDirIterator::Subdirectories);
        expected.sort();
        found.sort();
        QCOMPARE(found, expected);
        QCOMPARE(SDir::search(folder.path(), {QStringLiteral("*.txt")}, QDir::Files,
                     QDirIterator::Subdirectories),
            QStringList(deep + QStringLiteral("/file.txt")));
        QVERIFY(
            SDir::search(folder.filePath(QStringLiteral("none")), {}, QDirIterator::Subdirectories)
                .isEmpty());

        const SDir dir(deep);
        const QString link = folder.filePath(QStringLiteral("link"));
        QVERIFY(dir.isLocal() && dir.link(link) && !dir.link(link));
        QVERIFY(QFile::exists(link + QStringLiteral("/file.txt")));
        QVERIFY(!dir.link(folder.filePath(QStringLiteral("none/link"))));
        QVERIFY(!SDir(link + QStringLiteral("/none")).isLocal());
    }
};

QTEST_APPLESS_MAIN(TestDir)
#include "tst_sdir.moc"
