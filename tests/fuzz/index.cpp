#include "fuzz.h"

#include <tavex/SNvCache>

#include <QDir>
#include <QTemporaryDir>

/// Whatever the index has, the cache works, and nothing is written but its own files.
int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size)
{
    static const QTemporaryDir folder;
    const QString name = QStringLiteral("cache");
    const QDir directory(folder.filePath(name));
    directory.mkpath(QStringLiteral("."));
    QFile index(directory.filePath(QStringLiteral("index")));
    check(index.open(QIODevice::WriteOnly));
    index.write(reinterpret_cast<const char *>(data), qint64(size));
    index.close();
    {
        Quorvex::SNvCache cache(name, folder.path());
        const QStringList keys = cache.keys();
        check(!cache.isNull() && cache.count() == keys.size());
        for (const QString &key : keys) {
            const QByteArray value = key.toUtf8() + '.';
            check(cache.contains(key));
            check(!cache.insert(key, value) || cache.value(key) == value);
        }
        if (!keys.isEmpty())
            check(cache.remove(keys.constFirst()) && !cache.contains(keys.constFirst()));
        cache.clear();
        check(cache.isEmpty());
    }
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    check(directory.entryList(all) == QStringList{QStringLiteral("index")});
    check(QDir(folder.path()).entryList(all) == QStringList{name});
    return 0;
}
