#include <clocale>

#include <gtest/gtest.h>

// The tests run under the locale of their environment, as a host would: nothing of the library may ask it.
int main(int count, char ** arguments)
{
    std::setlocale(LC_ALL, "");
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
