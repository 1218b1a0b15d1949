#include "samples.h"

#include <tavex/IMetadata>

#include <QLibrary>
#include <QTest>

#include <limits>
#include <set>

using namespace Quorvex;
using namespace Quorvex::Interfaces;
using Sample::Own;

namespace {

template <typename Interface>
bool castsThere(IMetadata *value)
{
    Interface *const view = value;
    return dynamic_cast<IMetadata *>(view) == value
        && dynamic_cast<void *>(view) == dynamic_cast<void *>(value)
        && dynamic_cast<Interface *>(static_cast<ICloneable *>(value)) == view
        && dynamic_cast<Interface *>(static_cast<IFormattable *>(value)) == view
        && dynamic_cast<Interface *>(static_cast<IEquatable *>(value)) == view
        && dynamic_cast<Interface *>(static_cast<IIdentifiable *>(value)) == view;
}

bool castsEverywhere(IMetadata *value)
{
    return castsThere<ICloneable>(value) && castsThere<IFormattable>(value)
        && castsThere<IEquatable>(value) && castsThere<IIdentifiable>(value);
}

template <typename T, typename Meta>
void holdsExtremes()
{
    for (const T value :
        {std::numeric_limits<T>::lowest(), T(0), (std::numeric_limits<T>::max)()}) {
        const Meta meta(value);
        QCOMPARE(meta.value(), value);
        QCOMPARE(static_cast<T>(meta), value);
        const QVariant &variant = static_cast<const SMetaVariant &>(meta).value();
        QCOMPARE(variant.metaType(), QMetaType::fromType<T>());
        QVERIFY(!meta.isNull() && !meta.isEmpty());
    }
}

template <typename T, typename Meta>
void holdsLists()
{
    const QList<T> values{T(0), T(1)};
    QCOMPARE(Meta(values).value(), values);
    QCOMPARE(Meta(values).size(), 2);
    QCOMPARE(Meta(T(1)).value(), QList<T>(1, T(1)));
    QVERIFY(Meta(QList<T>()).isEmpty() && !Meta(QList<T>()).isNull() && !Meta(T(0)).isEmpty());
}

class Bare : public SMetaVariant
{
public:
    using SMetaVariant::SMetaVariant;
    [[nodiscard]] Bare *clone() const override { return new Bare(*this); }
    [[nodiscard]] quint64 id() const override { return typeid(Bare).hash_code(); }
};

} // namespace

class TestMetaValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void castsCloneAndIdentity()
    {
        const Sample::Values values = Sample::values();
        const Sample::Values again = Sample::values();
        std::set<quint64> ids;
        for (std::size_t i = 0; i < values.size(); ++i) {
            IMetadata *const value = values[i].get();
            QVERIFY(castsEverywhere(value));
            ids.insert(value->id());

            const std::unique_ptr<ICloneable> clone(value->clone());
            auto *const copy = dynamic_cast<IMetadata *>(clone.get());
            QVERIFY(copy && copy != value && castsEverywhere(copy));
            QCOMPARE(copy->id(), value->id());
            QVERIFY(value->equalsTo(copy) && copy->equalsTo(value));
            for (std::size_t k = 0; k < again.size(); ++k) {
                QCOMPARE(value->isSameTypeAs(again[k].get()), k == i);
                QCOMPARE(value->equalsTo(again[k].get()), k == i);
            }
            QVERIFY(!value->isSameTypeAs(nullptr) && !value->equalsTo(nullptr));

            const bool isStamp = dynamic_cast<SMetaDateTime *>(value);
            QCOMPARE(value->flags(), isStamp ? MetadataFlags::Volatile : MetadataFlags::None);
            if (const auto type = QByteArray(typeid(*value).name()); !type.contains("Sample"))
                QVERIFY2(type.contains(value->name().toLatin1()), type.constData());
        }
        QCOMPARE(ids.size(), values.size());
        QCOMPARE(SMetaInt32(1).id(), SMetaInt32::uniqueId());
        QCOMPARE(SMetaInt32::uniqueId(), quint64(typeid(SMetaInt32).hash_code()));
    }

    void acrossModules()
    {
        QLibrary module(QStringLiteral(PLUGIN_FILE));
        module.setLoadHints(QLibrary::ResolveAllSymbolsHint); // Its symbols stay its own.
        const auto makeValue =
            reinterpret_cast<IMetadata *(*)(std::size_t)>(module.resolve("makeValue"));
        QVERIFY2(makeValue, qPrintable(module.errorString()));
        const Sample::Values values = Sample::values();
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::unique_ptr<IMetadata> theirs(makeValue(i));
            QVERIFY(theirs && castsEverywhere(theirs.get()));
            const std::unique_ptr<ICloneable> clone(theirs->clone());
            QVERIFY(dynamic_cast<IMetadata *>(clone.get()));
            QCOMPARE(theirs->id(), values[i]->id());
            QVERIFY(theirs->equalsTo(values[i].get()) && values[i]->equalsTo(theirs.get()));
            QVERIFY(!theirs->isSameTypeAs(values[(i + 1) % values.size()].get()));
        }
        const std::unique_ptr<IMetadata> number(makeValue(4));
        const auto *const own = dynamic_cast<SMetaInt32 *>(number.get());
        QVERIFY(own && own->value() == -32);
        QVERIFY(!makeValue(values.size()));
    }

    void scalars()
    {
        holdsExtremes<qint8, SMetaInt8>();
        holdsExtremes<quint8, SMetaUInt8>();
        holdsExtremes<qint16, SMetaInt16>();
        holdsExtremes<quint16, SMetaUInt16>();
        holdsExtremes<qint32, SMetaInt32>();
        holdsExtremes<quint32, SMetaUInt32>();
        holdsExtremes<qint64, SMetaInt64>();
        holdsExtremes<quint64, SMetaUInt64>();
        holdsExtremes<float, SMetaSingle>();
        holdsExtremes<double, SMetaDouble>();
        holdsExtremes<bool, SMetaBool>();
        QCOMPARE(SMetaVersion(SVersion(1, 2, 3)).value(), SVersion(1, 2, 3));
        QVERIFY(SMetaDouble(0.1 + 0.2) != SMetaDouble(0.3));
        static_assert(!std::is_constructible_v<SMetaBool, const char *>);
        static_assert(!std::is_constructible_v<SMetaListBool, const char *>);

        const Bare null{QVariant()};
        QVERIFY(null.isNull() && null.isEmpty());

        // The base can be given what the class does not hold.
        SMetaInt32 number(1);
        static_cast<SMetaVariant &>(number) = Bare(QVariant(QStringLiteral("42")));
        QCOMPARE(number.value(), 42);
        static_cast<SMetaVariant &>(number) = null;
        QCOMPARE(number.value(), 0);
        QVERIFY(number.isEmpty());
    }

    void lists()
    {
        holdsLists<qint8, SMetaListInt8>();
        holdsLists<quint8, SMetaListUInt8>();
        holdsLists<qint16, SMetaListInt16>();
        holdsLists<quint16, SMetaListUInt16>();
        holdsLists<qint32, SMetaListInt32>();
        holdsLists<quint32, SMetaListUInt32>();
        holdsLists<qint64, SMetaListInt64>();
        holdsLists<quint64, SMetaListUInt64>();
        holdsLists<float, SMetaListSingle>();
        holdsLists<double, SMetaListDouble>();
        holdsLists<bool, SMetaListBool>();
        QCOMPARE(SMetaListInt32({1, -2, 3}).toString(QLocale::c()), QStringLiteral("1, -2, 3"));
        QCOMPARE(SMetaListInt32(QList<qint32>()).toString(), QString());
    }

    void names()
    {
        QCOMPARE(SMetaInt32(0).displayName(), QStringLiteral("Int 32"));
        QCOMPARE(SMetaListUInt16(quint16(0)).displayName(), QStringLiteral("List UInt 16"));
        QCOMPARE(Sample::Remark(QString()).name(), QStringLiteral("Remark"));
        QCOMPARE(Bare(QVariant()).displayName(), QStringLiteral("Bare"));
        QCOMPARE(
            Own<SMetaJsonDocument>(QJsonDocument()).displayName(), QStringLiteral("Json Document"));
    }

    void bytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("encoding");
        QTest::addColumn<QString>("text");
        const auto binary = [](int size) {
            return QStringLiteral("Binary data [len: ") + QString::number(size)
                + QStringLiteral(" bytes]");
        };
        QTest::newRow("ASCII") << QByteArray("abc") << QString() << QStringLiteral("abc");
        QTest::newRow("null") << QByteArray() << QString() << QString();
        QTest::newRow("UTF-8") << QByteArray("\xC3\xA9") << QString() << QStringLiteral(u"\u00E9");
        QTest::newRow("invalid") << QByteArray("\xFF\xFE\0", 3) << QString() << binary(3);
        QTest::newRow("cut off") << QByteArray("a\xC3") << QString() << binary(2);
        QTest::newRow("overlong") << QByteArray("\xC0\x80") << QString() << binary(2);
        QTest::newRow("Latin-1") << QByteArray("\xFF") << QStringLiteral("iso-8859-1")
                                 << QStringLiteral(u"\u00FF");
        QTest::newRow("UTF-16") << QByteArray("\0a", 2) << QStringLiteral("UTF-16BE")
                                << QStringLiteral("a");
        QTest::newRow("unknown") << QByteArray("abc") << QStringLiteral("no-such") << binary(3);
    }
    void bytes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, encoding);
        QFETCH(QString, text);
        Own<SMetaByteArray> value(bytes);
        QCOMPARE(value.toString(encoding), text);
        QCOMPARE(value.isEmpty(), bytes.isEmpty());
        QCOMPARE(value.isNull(), bytes.isNull());
    }

    void texts()
    {
        Sample::Remark empty{QStringLiteral("")};
        QVERIFY(empty.isEmpty() && !empty.isNull() && Sample::Remark(QString()).isNull());
        QCOMPARE(Sample::Remark(QStringLiteral("{x}")).toString(QStringLiteral("y")),
            QStringLiteral("{x}"));

        const QJsonObject object{{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}};
        Own<SMetaJsonDocument> json{QJsonDocument(object)};
        QCOMPARE(json.toString(), QStringLiteral("{\"a\":1,\"b\":2}"));
        QCOMPARE(json.toString(QStringLiteral("{other}")), json.toString());
        const QString indented = json.toString(QStringLiteral("{indent}"));
        QVERIFY(indented.count(QLatin1Char('\n')) > 2);
        QCOMPARE(json.toString(QStringLiteral("{json:indent}")), indented);
        QCOMPARE(QJsonDocument::fromJson(indented.toUtf8()).object(), object);
        QVERIFY(Own<SMetaJsonDocument>(QJsonDocument()).isEmpty());

        const QDateTime noon(QDate(2024, 2, 29), QTime(12, 0), Qt::OffsetFromUTC, 3600);
        QCOMPARE(Own<SMetaDateTime>(noon).toString(QStringLiteral("HH:mm")),
            noon.toLocalTime().toString(QStringLiteral("HH:mm")));
        QVERIFY(Own<SMetaDateTime>(QDateTime()).isNull());
        const QDateTime impossible(QDate(2023, 2, 29), QTime(12, 0));
        QVERIFY(Own<SMetaDateTime>(impossible).isEmpty());
        QCOMPARE(SMetaVersion(SVersion(1, 2, 3)).toString(QStringLiteral("{pp}"), QLocale::c()),
            QStringLiteral("3"));
    }
};

QTEST_GUILESS_MAIN(TestMetaValues)
#include "tst_metavalues.moc"
