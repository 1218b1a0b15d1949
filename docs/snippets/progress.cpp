#include "snippets.h"

#include <tavex/SProgressDefaulter>
#include <tavex/SProgressPool>

using namespace Quorvex;

//! [task]
// Any task: it knows neither who watches nor whether it is a part of something larger.
bool convertPages(int pages, IProgress *progress)
{
    const SProgressDefaulter whole(progress); // 0 now, 100 at the end
    for (int page = 0; page < pages; ++page) {
        if (progress->isAborted())
            return false;
        progress->setProgress(100 * page / pages);
    }
    return true;
}
//! [task]

void progress(QTextStream &out)
{
    //! [use]
    SProgressPool pool(2);
    QObject::connect(&pool, &SProgressPool::reportProgress, &pool, [&](qint32 value) {
        if (value % 25 == 0)
            out << value << "% ";
        if (value == 75)
            pool.abort();
    });
    const bool first = convertPages(4, pool.at(0));
    const bool second = convertPages(4, pool.at(1));
    out << (first ? "first done, " : "first aborted, ")
        << (second ? "second done\n" : "second aborted\n");
    //! [use]
}
