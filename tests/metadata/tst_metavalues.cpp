#include "samples.h"

#include <QLibrary>
#include <QTest>

#include <limits>

using namespace Quorvex;
using namespace Quorvex::Interfaces;
using Sample::Own;

namespace {

template <typename... Parts>
bool casts(IMetadata *value)
{
    ICloneable *const first = value;
    return ((dynamic_cast<Parts *>(first) == static_cast<Parts *>(value)
                && dynamic_cast<IMetadata *>(static_cast<Parts *>(value)) == value)
        && ...);
}

template <typename T, typename Scalar, typename List>
void holds(const QString &name)
{
    using Limits = std::numeric_limits<T>;
    for (const T value : {Limits::lowest(), T(0), (Limits::max)()}) {
        Scalar scalar(value);
        QCOMPARE(scalar.value(), value);
        QCOMPARE(scalar.name(), QStringLiteral("SMeta") + name);
        List list(value);
        QCOMPARE(list.value(), QList<T>(1, value));
        QCOMPARE(list.name(), QStringLiteral("SMetaList") + name);
        QVERIFY(!scalar.isEmpty() && !list.isEmpty() && List(QList<T>()).isEmpty());
    }
}

} // namespace

class TestMetaValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void acrossModules()
    {
        QLibrary module(QStringLiteral(PLUGIN_FILE));
        module.setLoadHints(QLibrary::ResolveAllSymbolsHint); // Its symbols stay its own.
        const auto makeValue =
            reinterpret_cast<IMetadata *(*)(std::size_t)>(module.resolve("makeValue"));
        QVERIFY2(makeValue, qPrintable(module.errorString()));
        const Sample::Values ours = Sample::values();
        for (std::size_t i = 0; i < ours.size(); ++i) {
            const std::unique_ptr<IMetadata> theirs(makeValue(i));
            const std::unique_ptr<ICloneable> clone(theirs->clone());
            auto *const copy = dynamic_cast<IMetadata *>(clone.get());
            QVERIFY(copy && copy != theirs.get());
            for (IMetadata *const value : {ours[i].get(), theirs.get(), copy}) {
                QVERIFY((casts<ICloneable, IFormattable, IEquatable, IIdentifiable>(value)));
                QVERIFY(!value->isSameTypeAs(nullptr) && !value->equalsTo(nullptr));
                for (std::size_t k = 0; k < ours.size(); ++k) {
                    QCOMPARE(value->id() == ours[k]->id(), k == i);
                    QCOMPARE(value->isSameTypeAs(ours[k].get()), k == i);
                    QCOMPARE(value->equalsTo(ours[k].get()), k == i);
                    QCOMPARE(ours[k]->equalsTo(value), k == i);
                }
                const bool isStamp = dynamic_cast<SMetaDateTime *>(value);
                QCOMPARE(value->flags(), isStamp ? MetadataFlags::Volatile : MetadataFlags::None);
            }
        }
    }

    void numbers()
    {
#define CHECK_CLASSES(T, Name) holds<T, SMeta##Name, SMetaList##Name>(QStringLiteral(#Name));
        FOR_EACH_NUMBER(CHECK_CLASSES)
        QVERIFY(SMetaDouble(0.1 + 0.2) != SMetaDouble(0.3));
        static_assert(!std::is_constructible_v<SMetaBool, const char *>);
        QCOMPARE(SMetaListInt32({1, -2, 3}).toString(QLocale::c()), QStringLiteral("1, -2, 3"));

        // The base can be given what the class does not hold.
        SMetaInt32 number(1);
        static_cast<SMetaVariant &>(number) = Own<SMetaVariant>(QStringLiteral("42"));
        QCOMPARE(number.value(), 42);
        QVERIFY(Own<SMetaVariant>(QVariant()).isEmpty());
    }

    void texts()
    {
        const std::tuple<QByteArray, QString, QString> rows[] = {
            {"\xC3\xA9", {}, QStringLiteral(u"\u00E9")},
            {QByteArray("\xFF\xFE\0", 3), {}, QStringLiteral("Binary data [len: 3 bytes]")},
            {"a\xC3", {}, QStringLiteral("Binary data [len: 2 bytes]")},
            {"\xC0\x80", {}, QStringLiteral("Binary data [len: 2 bytes]")},
            {"\xFF", QStringLiteral("iso-8859-1"), QStringLiteral(u"\u00FF")},
            {QByteArray("\0a", 2), QStringLiteral("UTF-16BE"), QStringLiteral("a")},
            {"a", QStringLiteral("no-such"), QStringLiteral("Binary data [len: 1 bytes]")},
        };
        for (const auto &[bytes, encoding, text] : rows)
            QCOMPARE(Own<SMetaByteArray>(bytes).toString(encoding), text);
        Own<SMetaJsonDocument> json(QJsonDocument(QJsonObject{{QStringLiteral("a"), 1}}));
        QCOMPARE(json.toString(QStringLiteral("{other}")), QStringLiteral("{\"a\":1}"));
        for (const char *format : {"{indent}", "{json:indent}"})
            QVERIFY(json.toString(QString::fromLatin1(format)).contains(QLatin1Char('\n')));

        const QDateTime noon(QDate(2024, 2, 29), QTime(12, 0), Qt::OffsetFromUTC, 3600);
        QCOMPARE(Own<SMetaDateTime>(noon).toString(QStringLiteral("HH:mm")),
            noon.toLocalTime().toString(QStringLiteral("HH:mm")));
        QVERIFY(Own<SMetaDateTime>(QDateTime(QDate(2023, 2, 29), QTime(12, 0))).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestMetaValues)
#include "tst_metavalues.moc"
