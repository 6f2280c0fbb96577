#ifndef IPC2581_VIEWER_LIBRARIES_XML_CONFIG_H
#define IPC2581_VIEWER_LIBRARIES_XML_CONFIG_H

/* What the parser asks of the system. */
#define HAVE_CTYPE_H 1
#define HAVE_ERRNO_H 1
#define HAVE_FCNTL_H 1
#define HAVE_FLOAT_H 1
#define HAVE_INTTYPES_H 1
#define HAVE_LIMITS_H 1
#define HAVE_MATH_H 1
#define HAVE_SNPRINTF 1
#define HAVE_STAT 1
#define HAVE_STDARG_H 1
#define HAVE_STDINT_H 1
#define HAVE_STDLIB_H 1
#define HAVE_STRING_H 1
#define HAVE_SYS_STAT_H 1
#define HAVE_SYS_TYPES_H 1
#define HAVE_TIME_H 1
#define HAVE_UNISTD_H 1
#define HAVE_VA_COPY 1
#define HAVE_VSNPRINTF 1
#define ICONV_CONST
#define STDC_HEADERS 1
#define XML_THREAD_LOCAL

#endif
