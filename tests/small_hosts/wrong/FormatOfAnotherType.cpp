// FormatDoesNotFitItsArguments
#include <ipc2581/ipc2581.h>

int main()
{
    CString text;
#ifdef WRONG
    text.Format("%d", 1.5);
#else
    text.Format("%d", 1);
#endif
}
