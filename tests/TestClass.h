#pragma once

#include "tests/patience.h"

#include <QApplication>
#include <QCoreApplication>
#include <QTest>

// A test class of a program that holds several. The program runs one class at a time, by its name,
// so that each run is a process of its own. Registered once, before main(), by one of the macros
// below, which stand for Qt Test's macros of similar names.
class TestClass
{
public:
    using Run = int (*)(int argc, char **argv);

    TestClass(const char *name, Run run);
};

#define REGISTER_TEST_CLASS(Class, ...) \
    static int run_##Class(int argc, char **argv) \
    { \
        QTest::Internal::callInitMain<Class>(); \
        __VA_ARGS__ \
        Class test; \
        QTEST_SET_MAIN_SOURCE_PATH \
        return QTest::qExec(&test, argc, argv); \
    } \
    static const TestClass registered_##Class(#Class, run_##Class);

// With widgets, with an event loop only, and without an application object.
#define TEST_CLASS(Class) REGISTER_TEST_CLASS(Class, QTEST_MAIN_SETUP())
#define GUILESS_TEST_CLASS(Class) REGISTER_TEST_CLASS(Class, QTEST_QAPP_SETUP(QCoreApplication))
#define APPLESS_TEST_CLASS(Class) REGISTER_TEST_CLASS(Class)
