#include <iostream>

#include "tools/format_page/Page.h"

int main()
{
    ipc2581::format_page::WritePage(std::cout);
    return std::cout.flush() ? 0 : 1;
}
