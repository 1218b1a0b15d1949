//! [all]
#include <tavex/BinaryUnit>
#include <tavex/SCrc32>
#include <tavex/SUnitConvert>
#include <tavex/TavexApplication>

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

int main(int argc, char *argv[])
{
    using namespace Quorvex;
    QCoreApplication app(argc, argv);

    //! [start]
    TavexApplication::init(QLocale(QLocale::French));
    for (QTranslator *translator : TavexApplication::translations())
        QCoreApplication::installTranslator(translator);
    //! [start]

    //! [checksum]
    QFile file(QCoreApplication::applicationFilePath());
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    bool ok = false;
    const uint crc = SCrc32::hash(&file, &ok);
    if (!ok)
        return 1;
    //! [checksum]

    //! [size]
    auto size = static_cast<double>(file.size());
    const BinaryUnit unit = SUnitConvert::autoBinaryUnits(size, BinaryUnit::Byte);
    const QString key = BinaryUnit_T::instance().toString(unit);
    QTextStream(stdout) << QLocale().toString(size, 'f', 1) << ' '
                        << BinaryUnit_TR::instance().etr(key) << ", CRC-32 " << Qt::hex << crc
                        << '\n';
    //! [size]
}
//! [all]
