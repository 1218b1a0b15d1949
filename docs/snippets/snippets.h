#pragma once

#include <QTextStream>

/// \file
/// The examples of the pages. Each function is one, and writes what its page says that it writes.

void application(QTextStream &out);
void cache(QTextStream &out);
void colour(QTextStream &out);
void conversion(QTextStream &out);
void core(QTextStream &out);
void files(QTextStream &out);
void metadata(QTextStream &out);
void numbers(QTextStream &out);
void progress(QTextStream &out);
void system(QTextStream &out);
