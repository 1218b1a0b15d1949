#pragma once

#include <QList>
#include <QLocale>

/// A locale for each language of the library, in the order of the languages' own names.
QList<QLocale> languages();

/// Makes \a locale that of all texts, numbers and dates. Every widget gets a LanguageChange.
void setLanguage(const QLocale &locale);
