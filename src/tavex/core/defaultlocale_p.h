#pragma once

namespace Quorvex {

/// Keeps the present default locale of Qt until the library is unloaded. Qt deletes one that is
/// replaced, even while another thread copies it.
void keepDefaultLocale();

/// Does so when the program exits: Qt destroys its default locale before globals of the program
/// that are older, whose destructors then could print nothing. Cheap to call again.
void keepDefaultLocaleAtExit();

} // namespace Quorvex
