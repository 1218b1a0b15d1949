#pragma once

#include <QList>
#include <QLocale>
#include <QString>
#include <QTextStream>

/// A line of what the library knows.
struct SystemFact
{
    QString label;
    QString value;
};

struct SystemSection
{
    QString title; ///< The first section has none.
    QList<SystemFact> facts;
};

/// What the library knows of the system, the volumes and the user's folders.
QList<SystemSection> describeSystem(const QLocale &locale);

/// Writes that as text.
void writeSystem(QTextStream &out, const QLocale &locale);

/// The same as a JSON document, with numbers of bytes as they are.
QByteArray systemAsJson();
