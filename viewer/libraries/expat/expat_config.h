#ifndef IPC2581_VIEWER_LIBRARIES_EXPAT_EXPAT_CONFIG_H
#define IPC2581_VIEWER_LIBRARIES_EXPAT_EXPAT_CONFIG_H

/* What the other parser asks of the system, and how much of XML it knows. */
#define BYTEORDER 1234
#define HAVE_FCNTL_H 1
#define HAVE_UNISTD_H 1
#define STDC_HEADERS 1
#define XML_CONTEXT_BYTES 1024
#define XML_DTD 1
#define XML_DEV_URANDOM 1
#define XML_NS 1

#endif
