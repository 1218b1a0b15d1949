#pragma once

#include <QLocale>
#include <QString>
#include <QTextStream>

/// Translates \a text in the context of this program.
QString tr(const char *text, int n = -1);

/// Writes what the library knows of the system, the volumes and the user's folders, as text.
void writeSystem(QTextStream &out, const QLocale &locale);

/// The same as a JSON document, with numbers of bytes as they are.
QByteArray systemAsJson();
