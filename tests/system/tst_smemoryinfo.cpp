#include <tavex/SMemoryInfo>

#include <QByteArray>
#include <QTest>

using Quorvex::SMemoryInfo;

class TestSMemoryInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void figures()
    {
        constexpr qint64 Size = 64 << 20;
        QVERIFY(SMemoryInfo::available() > 0);
        QVERIFY(SMemoryInfo::total() > SMemoryInfo::available());
        const qint64 before = SMemoryInfo::processUse();
        QVERIFY(before > 1 << 20);
        const QByteArray block(Size, 'x');
        const qint64 grown = SMemoryInfo::processUse() - before;
        QVERIFY(block.endsWith('x'));
        QVERIFY2(grown > Size / 2 && grown < Size * 4, qPrintable(QString::number(grown)));
        QVERIFY(SMemoryInfo::processUse() < SMemoryInfo::total());
    }
};

QTEST_APPLESS_MAIN(TestSMemoryInfo)
#include "tst_smemoryinfo.moc"
