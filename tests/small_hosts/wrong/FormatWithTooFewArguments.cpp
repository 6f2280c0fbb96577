// FormatDoesNotFitItsArguments
#include <ipc2581/ipc2581.h>

int main()
{
    CString text;
#ifdef WRONG
    text.Format("%s %*d", "width", 5);
#else
    text.Format("%s %*d", "width", 5, 1);
#endif
}
