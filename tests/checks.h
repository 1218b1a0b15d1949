#pragma once

#include <QtTest>

/// \file
/// Checks beside those of Qt Test.

/// QVERIFY of each of the conditions in turn: the failure names the one that does not hold.
#define VERIFY_ALL(...)                                                                            \
    do {                                                                                           \
        VERIFY_EXPAND(VERIFY_EACH(__VA_ARGS__))                                                    \
    } while (false)
#define VERIFY_EACH(CONDITION, ...)                                                                \
    if (!QTest::qVerify(static_cast<bool>(CONDITION), #CONDITION, "", __FILE__, __LINE__))         \
        return;                                                                                    \
    __VA_OPT__(VERIFY_AGAIN VERIFY_PARENS(__VA_ARGS__))
#define VERIFY_AGAIN() VERIFY_EACH
#define VERIFY_PARENS ()
#define VERIFY_EXPAND(...) VERIFY_EXPAND2(VERIFY_EXPAND2(__VA_ARGS__))
#define VERIFY_EXPAND2(...) VERIFY_EXPAND4(VERIFY_EXPAND4(__VA_ARGS__))
#define VERIFY_EXPAND4(...) __VA_ARGS__

/// QCOMPARE whose failure also names the row of a table.
#define COMPARE_ROW(ROW, ACTUAL, EXPECTED)                                                         \
    do {                                                                                           \
        if (!QTest::qCompare(ACTUAL, EXPECTED,                                                     \
                qPrintable(QAnyStringView(ROW).toString() + QLatin1String(": " #ACTUAL)),          \
                #EXPECTED, __FILE__, __LINE__))                                                    \
            return;                                                                                \
    } while (false)
