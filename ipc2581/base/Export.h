#ifndef IPC2581_BASE_EXPORT_H
#define IPC2581_BASE_EXPORT_H

// Marks what a host may link against; everything else stays inside the shared library. That of Windows shows all.
#if defined(_WIN32)
#define IPC2581_API
#else
#define IPC2581_API __attribute__((visibility("default")))
#endif

#endif
