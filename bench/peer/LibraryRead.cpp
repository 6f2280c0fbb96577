#include <cstdio>

#include <ipc2581/ipc2581.h>

#include "bench/Measure.h"

namespace {

bool hasFailed = false;

int Report(const char * text, unsigned, unsigned)
{
    std::fprintf(stderr, "%s\n", text);
    hasFailed = true;
    return 0;
}

}  // namespace

int main(int count, char ** arguments)
{
    using namespace ipc2581::bench;
    if (count != 2 && count != 3) {
        std::fputs("usage: library_read FILE [OUT]\n", stderr);
        return 2;
    }
    AfxSetMessageBoxHandler(Report);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    CString path(arguments[1]);
    double start = CpuMilliseconds();
    reader.OpenPath(path, root);
    double used = CpuMilliseconds() - start;
    if (hasFailed) {
        return 1;
    }
    std::printf("read %.1f ms %.1f MB\n", used, PeakMegabytes());
    if (count == 3) {
        CString out(arguments[2]);
        start = CpuMilliseconds();
        const int result = reader.WriteFilePath(out, root);
        used = CpuMilliseconds() - start;
        if (hasFailed || result != 1) {
            return 1;
        }
        std::printf("write %.1f ms %.1f MB\n", used, PeakMegabytes());
    }
    return 0;
}
