#include <QApplication>

#include <gtest/gtest.h>

/// The main function of tests that need windows.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) // asked by the build, which has no display
        return RUN_ALL_TESTS();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
