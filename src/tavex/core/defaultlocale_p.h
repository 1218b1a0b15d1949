#pragma once

namespace Quorvex {

/// Keeps a copy of Qt's present default locale until the library is unloaded. Without it, Qt would
/// delete the locale when it is replaced, even while another thread copies it.
void keepDefaultLocale();

/// Does so when the program exits. Qt then destroys its default locale, but globals of the program
/// that were made before may still print in their destructors. Cheap to call again.
void keepDefaultLocaleAtExit();

} // namespace Quorvex
