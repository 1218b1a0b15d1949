// Uses the library as a plug-in of an application would.

#include <tavex/Tavex>

#include <QCoreApplication>
#include <QDir>

using namespace Quorvex;

enum class PluginEnum { One = 1 };

template <typename Meta, typename T>
static void makeList(QVariantList *variants)
{
    Meta meta(QList<T>{1, 2});
    const SMetaVariant &base = meta;
    if (base == Meta(meta) && !(base == SMetaListBool(true)) && meta.value() == QList<T>{1, 2}
        && meta.toString() == QStringLiteral("1, 2"))
        variants->append(base.value());
}

/// Replaces the list {1, 2} of another module by such lists of metadata, after the library has used
/// all of them, and types of the plug-in.
extern "C" Q_DECL_EXPORT void makeLists(QVariantList *variants)
{
    if (SConvert::toString(*variants) != QStringLiteral("[1, 2]")
        || SConvert::toString(QList<QList<int>>{{1}, {2}}) != QStringLiteral("[1], [2]")
        || SConvert::toString(QList<PluginEnum>{PluginEnum::One}) != QStringLiteral("1"))
        return;
    variants->clear();
    makeList<SMetaListInt8, qint8>(variants);
    makeList<SMetaListUInt8, quint8>(variants);
    makeList<SMetaListInt16, qint16>(variants);
    makeList<SMetaListSingle, float>(variants);
    makeList<SMetaListDouble, double>(variants);
}

/// Returns 0, or which step did not work.
extern "C" Q_DECL_EXPORT int useLibrary()
{
    const QVariant value = QVariant::fromValue(Bool::True);
    const auto converter = SVariantConvert::sVariantToStringFunction(value.userType());
    SVariantConvert::sVariantToStringRegister(
        QMetaType::QUuid, [](auto &, auto &, auto &) { return QString(); });
    TavexApplication::translationRegister(QStringLiteral("tavex"));
    TavexApplication::init(QLocale(QLocale::German));
    const QString word = Bool_TR::instance().etr(QStringLiteral("True"));
    TavexApplication::init(QLocale::c());
    const SMetaListUInt16 list(QList<quint16>{1, 2});
    SProgressPool pool(2);
    pool.setProgress(40);
    const QString name = QStringLiteral("unload%1").arg(QCoreApplication::applicationPid());
    const QList<bool> steps{
        converter && converter(value, {}, QLocale::c()) == QStringLiteral("True"),
        BinaryUnit_T::instance().toString(BinaryUnit::KiB) == QStringLiteral("KiB"),
        word == QStringLiteral("Wahr"),
        SConvert::toVersion(SConvert::toVariant(SVersion(1, 2, 3))) == SVersion(1, 2, 3),
        SConvert::toVersion(QStringLiteral("1.2.3")) == SVersion(1, 2, 3),
        SClassName::displayName(QStringLiteral("SMetaInt32")) == QStringLiteral("Int 32"),
        SCrc32::hash(QByteArray("123456789")) == 0x0376E6E7,
        // Asking for the type id registers the type.
        static_cast<const SMetaVariant &>(list).value().userType() >= QMetaType::User,
        pool.progress() == 40,
        // Unloading deletes it, or the next round cannot make it.
        QDir::temp().mkdir(SFileHelper::deleteFolderOnExit(QDir::temp().filePath(name)))};
    return int(steps.indexOf(false)) + 1;
}
