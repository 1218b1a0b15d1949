// Uses the library as a plug-in of an application would.

#include <tavex/Tavex>

#include <QCoreApplication>
#include <QDir>
#include <QVariant>

using namespace Quorvex;

namespace {

QString ownConverter(const QVariant &, const QString &, const QLocale &)
{
    return {};
}

} // namespace

/// Returns 0, or which step did not work.
extern "C" Q_DECL_EXPORT int useLibrary()
{
    const QVariant value = QVariant::fromValue(Bool::True);
    const auto converter = SVariantConvert::sVariantToStringFunction(value.userType());
    if (!converter || converter(value, {}, QLocale::c()) != QStringLiteral("True"))
        return 1;
    SVariantConvert::sVariantToStringRegister(QMetaType::QUuid, &ownConverter);
    if (BinaryUnit_T::instance().toString(BinaryUnit::KiB) != QStringLiteral("KiB"))
        return 2;

    TavexApplication::translationRegister(QStringLiteral("tavex"));
    TavexApplication::init(QLocale(QLocale::German));
    if (Bool_TR::instance().etr(QStringLiteral("True")) != QStringLiteral("Wahr"))
        return 3;
    TavexApplication::init(QLocale::c());

    if (SConvert::toVersion(SConvert::toVariant(SVersion(1, 2, 3))) != SVersion(1, 2, 3))
        return 4;
    if (SConvert::toVersion(QStringLiteral("1.2.3")) != SVersion(1, 2, 3))
        return 5;
    if (SClassName::displayName(QStringLiteral("SMetaInt32")) != QStringLiteral("Int 32"))
        return 6;
    if (SCrc32::hash(QByteArray("123456789")) != 0x0376E6E7)
        return 7;
    // Asking for the number registers the type.
    const SMetaListInt16 list(QList<qint16>{1, 2});
    if (static_cast<const SMetaVariant &>(list).value().userType() < QMetaType::User)
        return 8;
    SProgressPool pool(2);
    pool.setProgress(40);
    if (pool.progress() != 40)
        return 9;
    // Unloading deletes it, or the next round cannot make it.
    const QString name = QStringLiteral("unload%1").arg(QCoreApplication::applicationPid());
    if (!QDir::temp().mkdir(SFileHelper::deleteFolderOnExit(QDir::temp().filePath(name))))
        return 10;
    return 0;
}
