#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

#define TAVEX_SpecialFolder_KEYS(KEY)                                                              \
    KEY(DesktopLocation, 0)                                                                        \
    KEY(DocumentsLocation, 1)                                                                      \
    KEY(FontsLocation, 2)                                                                          \
    KEY(ApplicationsLocation, 3)                                                                   \
    KEY(MusicLocation, 4)                                                                          \
    KEY(MoviesLocation, 5)                                                                         \
    KEY(PicturesLocation, 6)                                                                       \
    KEY(TempLocation, 7)                                                                           \
    KEY(HomeLocation, 8)                                                                           \
    KEY(DataLocation, 9) /**< the older name of AppLocalDataLocation */                            \
    KEY(CacheLocation, 10)                                                                         \
    KEY(GenericDataLocation, 11)                                                                   \
    KEY(RuntimeLocation, 12)                                                                       \
    KEY(ConfigLocation, 13)                                                                        \
    KEY(DownloadLocation, 14)                                                                      \
    KEY(GenericCacheLocation, 15)                                                                  \
    KEY(GenericConfigLocation, 16)                                                                 \
    KEY(AppDataLocation, 17)                                                                       \
    KEY(AppLocalDataLocation, 9)                                                                   \
    KEY(AppConfigLocation, 18)                                                                     \
    KEY(RootLocation, 100)       /**< root of the file system */                                   \
    KEY(CommonDataLocation, 101) /**< application data shared by all users */                      \
    KEY(ColorFolder, 102)        /**< installed colour profiles */

/// A folder with a purpose. Values below 100 are those of QStandardPaths::StandardLocation.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, SpecialFolder, qint32, TAVEX_SpecialFolder_KEYS);

} // namespace Quorvex
