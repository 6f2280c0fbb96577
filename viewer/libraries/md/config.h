#ifndef IPC2581_VIEWER_LIBRARIES_MD_CONFIG_H
#define IPC2581_VIEWER_LIBRARIES_MD_CONFIG_H

/* The sums ask nothing of the system. */

#endif
