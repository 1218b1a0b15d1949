#pragma once

#include <QCoreApplication>
#include <QLocale>
#include <QString>
#include <QStringList>

/// The text of --lang among the \a arguments, which is needed before anything else: the help text
/// is in that language, too.
QString languageArgument(const QStringList &arguments);

/// The locale that the user named, or else the system's. Where that is the bare C locale, the
/// program speaks English, whose catalogue knows the plural forms.
QLocale languageLocale(const QString &name);

/// What is shown: Text::tr() translates in the context "inventory".
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(inventory)
};

/// \a bytes in the unit that reads best, in the words of the current language, such as "4.3 KiB".
QString readableSize(qint64 bytes, const QLocale &locale);

/// \a crc as eight hexadecimal digits.
QString crcText(uint crc);
