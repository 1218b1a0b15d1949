#include <tavex/SPointerList>

#include <QTest>

#include <memory>

using Quorvex::SPointer;
using Quorvex::SPointerList;

namespace {

struct Counted
{
    Counted() { ++alive; }
    Q_DISABLE_COPY_MOVE(Counted)
    ~Counted() { --alive; }
    static inline int alive = 0;
};

} // namespace

class TestSPointer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownership()
    {
        std::unique_ptr<Counted> kept;
        {
            SPointer<Counted> first(new Counted);
            SPointer<Counted> second(new Counted);
            kept.reset(first.release());
            QVERIFY(first.isReleased() && first.get() == kept.get());
            second = SPointer<Counted>(new Counted);
            QCOMPARE(Counted::alive, 2);
        }
        QCOMPARE(Counted::alive, 1);
    }

    void list()
    {
        Counted *handedOut = nullptr;
        {
            SPointerList<Counted> list;
            auto *a = new Counted;
            auto *b = new Counted;
            handedOut = new Counted;
            for (Counted *object : {a, b, handedOut, a})
                list.add(object);
            QCOMPARE(list.toList(), (QList<Counted *>{a, b, handedOut}));
            QVERIFY(list.remove(b) && !list.remove(b) && !list.contains(b));
            QVERIFY(list.release(handedOut) && !list.release(handedOut));
            QCOMPARE(Counted::alive, 2);
        }
        QCOMPARE(Counted::alive, 1);
        delete handedOut;
    }
};

QTEST_APPLESS_MAIN(TestSPointer)
#include "tst_spointer.moc"
