#pragma once

#include <QLocale>
#include <QString>

#include <span>

namespace Quorvex::RealText {

/// \a numbers in the shortest text that reads back, separated by "; ".
[[nodiscard]] QString join(std::span<const double> numbers, QLocale locale);

/// Reads as many numbers as \a numbers has room for. False if \a text is anything else.
[[nodiscard]] bool split(const QString &text, std::span<double> numbers, const QLocale &locale);

} // namespace Quorvex::RealText
