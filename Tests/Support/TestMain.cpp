#include <QCoreApplication>

#include <gtest/gtest.h>

/// Read by the leak sanitizer: ONNX Runtime keeps a few hundred bytes of its own for the life of the process.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libonnxruntime\n";
}

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
