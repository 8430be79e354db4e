#pragma once

#include <QTest>

// How many times longer than on a quiet machine a wait or a limit may be. The one place for it:
// tests/CMakeLists.txt reads it from here for the limits of whole tests.
constexpr int patienceFactor = 10;

// What a wait of this many milliseconds, or of Qt Test's usual five seconds, gets at most. Waits
// end on events, so that only a failure takes so long.
constexpr int patient(int milliseconds = 5'000) { return milliseconds * patienceFactor; }

#undef QTRY_VERIFY
#define QTRY_VERIFY(expression) QTRY_VERIFY_WITH_TIMEOUT(expression, patient())
#undef QTRY_VERIFY2
#define QTRY_VERIFY2(expression, message) QTRY_VERIFY2_WITH_TIMEOUT(expression, message, patient())
#undef QTRY_COMPARE
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, patient())
