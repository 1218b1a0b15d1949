#include "fuzz.h"

#include <tavex/SNvCache>

#include <QDir>
#include <QTemporaryDir>

/// Whatever the index has, the cache works, and nothing is written but its own files.
int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size)
{
    // In memory: a disk would take most of the time.
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz-XXXXXX"));
    static const QString name = QStringLiteral("cache");
    static const QString path = folder.filePath(name);
    static const bool isMade = QDir().mkpath(path);
    check(isMade);
    QFile index(path + QStringLiteral("/index"));
    check(index.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    index.write(reinterpret_cast<const char *>(data), qint64(size));
    index.close();
    QStringList keys;
    {
        Quorvex::SNvCache cache(name, folder.path());
        keys = cache.keys();
        check(!cache.isNull() && cache.count() == keys.size());
        for (const QString &key : keys)
            check(cache.contains(key) && cache.value(key).isEmpty());
        if (!keys.isEmpty()) {
            const QString &key = keys.constFirst();
            check(!cache.insert(key, "value") || cache.value(key) == "value");
            check(cache.remove(key) && !cache.contains(key));
            cache.clear();
        }
        check(cache.isEmpty());
    }
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    check(keys.isEmpty() || QDir(path).entryList(all) == QStringList{QStringLiteral("index")});
    return 0;
}
