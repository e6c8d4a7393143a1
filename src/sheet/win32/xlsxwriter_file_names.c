/* The UTF-8 file calls of the Windows build of libxlsxwriter (see
 * xlsxwriter_file_names.h). */
#define TELVARO_XLSXWRITER_FILE_NAMES_IMPLEMENTATION
#include "xlsxwriter_file_names.h"

#include <windows.h>

#include <errno.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

/* The UTF-16 form of a UTF-8 text, to be freed; NULL (errno set) when the
 * text is not UTF-8 or memory is short. */
static wchar_t* widen(const char* text) {
    int units = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text, -1, NULL, 0);
    wchar_t* wide;
    if (units <= 0) {
        errno = EINVAL;
        return NULL;
    }
    wide = malloc(sizeof(wchar_t) * (size_t)units);
    if (!wide) {
        errno = ENOMEM;
        return NULL;
    }
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text, -1, wide, units);
    return wide;
}

FILE* telvaro_xlsxwriter_fopen(const char* name, const char* mode) {
    wchar_t* wideName = widen(name);
    wchar_t* wideMode = wideName ? widen(mode) : NULL;
    FILE* file = wideMode ? _wfopen(wideName, wideMode) : NULL;
    free(wideMode);
    free(wideName);
    return file;
}

int telvaro_xlsxwriter_open(const char* name, int flags, int mode) {
    wchar_t* wideName = widen(name);
    int descriptor = wideName ? _wopen(wideName, flags, mode) : -1;
    free(wideName);
    return descriptor;
}

int telvaro_xlsxwriter_stat(const char* name, struct stat* status) {
    wchar_t* wideName = widen(name);
    struct _stat64 found;
    int result = wideName ? _wstat64(wideName, &found) : -1;
    free(wideName);
    if (result != 0) return result;
    memset(status, 0, sizeof *status);
    status->st_dev = found.st_dev;
    status->st_ino = found.st_ino;
    status->st_mode = found.st_mode;
    status->st_nlink = found.st_nlink;
    status->st_size = (_off_t)found.st_size;
    status->st_atime = found.st_atime;
    status->st_mtime = found.st_mtime;
    status->st_ctime = found.st_ctime;
    return 0;
}
