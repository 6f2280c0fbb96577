// FormatDoesNotFitItsArguments
#include <ipc2581/ipc2581.h>

int main()
{
    CString text;
    int count = 0;
#ifdef WRONG
    text.Format("%n", &count);
#else
    text.Format("%p", &count);
#endif
}
