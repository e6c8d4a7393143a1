/* File names in the Windows build of libxlsxwriter.
 *
 * libxlsxwriter 1.1.4 built with MinGW opens its files with the narrow C
 * calls: the .xlsx through minizip's fopen, its temporary files through
 * tmpfileplus's stat and _open (its own UTF-8 lxw_fopen is compiled for
 * MSVC only, and serves only images). The narrow calls read a name in the
 * ANSI code page, so a folder with a character outside it (a user name
 * "Zoë" under another code page, any Chinese name) could not be written.
 * This header is included ahead of each of libxlsxwriter's sources (its
 * files stay as Debian ships them): those calls take the name as UTF-8,
 * which is how the sheet passes it (sheet/workbook_file.h, writerPath),
 * and open it through the wide-character calls. */
#ifndef TELVARO_XLSXWRITER_FILE_NAMES_H
#define TELVARO_XLSXWRITER_FILE_NAMES_H

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <sys/stat.h>
#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

FILE* telvaro_xlsxwriter_fopen(const char* name, const char* mode);
int telvaro_xlsxwriter_open(const char* name, int flags, int mode);
int telvaro_xlsxwriter_stat(const char* name, struct stat* status);

#ifdef __cplusplus
}
#endif

#ifndef TELVARO_XLSXWRITER_FILE_NAMES_IMPLEMENTATION
#define fopen telvaro_xlsxwriter_fopen
#define _open telvaro_xlsxwriter_open
#undef stat
#define stat(name, status) telvaro_xlsxwriter_stat(name, status)
#endif

#endif
