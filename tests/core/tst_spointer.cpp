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

            SPointerList<Counted> list;
            auto *a = new Counted;
            auto *b = new Counted;
            for (Counted *object : {a, b, kept.get(), a})
                list.add(object);
            QCOMPARE(list.toList(), (QList<Counted *>{a, b, kept.get()}));
            QVERIFY(list.remove(b) && !list.remove(b) && !list.contains(b));
            QVERIFY(list.release(kept.get()) && !list.release(kept.get()));
            QCOMPARE(Counted::alive, 3);
        }
        QCOMPARE(Counted::alive, 1);
    }
};

QTEST_APPLESS_MAIN(TestSPointer)
#include "tst_spointer.moc"
