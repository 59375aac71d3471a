/*
 * A firmware's library at its smallest: every operation of the management API and the utility operations in plain C.
 *
 * The switch that it plays runs from image bank 2 and holds images of zeros, but for a few settings of its ports, so
 * that a text which names them can only have come through this library.
 *
 * STUB_WITHOUT_MAPI and STUB_WITHOUT_UTIL leave out a half each, for a firmware with a library for either.
 */
#include "platform/mapi.h"
#include "platform/util.h"

#include <arpa/inet.h>
#include <stdarg.h>
#include <stdio.h>
#include <string.h>

#ifndef STUB_WITHOUT_MAPI
/* ------------------------------------------------------------------------------------------------ management API */

enum { TRANSACTIONS = 2 };

static int open_transactions[TRANSACTIONS];

static int is_open(int32_t handle) { return handle >= 0 && handle < TRANSACTIONS && open_transactions[handle]; }

int32_t mapi_start_transc(void) {
    for (int32_t handle = 0; handle < TRANSACTIONS; ++handle) {
        if (open_transactions[handle]) continue;
        open_transactions[handle] = 1;
        return handle;
    }
    return MAPI_NO_TRANSACTION;
}

int32_t mapi_end_transc(int32_t handle) {
    if (!is_open(handle)) return -1;
    open_transactions[handle] = 0;
    return 0;
}

int32_t mapi_sys_eeprom_info_get(int32_t handle, void *record) {
    static const unsigned char mac[6] = {0x00, 0x1b, 0xa2, 0x0c, 0xde, 0xf0};
    unsigned char *const board = record;
    if (!is_open(handle)) return -1;
    memset(board, 0, MAPI_EEPROM_INFO_SIZE);
    memcpy(board + 168, mac, sizeof mac);
    memcpy(board + 204, "V1.00", 5);
    memcpy(board + 214, "V2.07stub0", 10); /* as wide as its field: without a terminator */
    return 0;
}

int32_t mapi_sys_config_getconfig(int32_t handle, int32_t selector, void *image) {
    enum { PORTS = 4776, PORT_SIZE = 76, SHUT_DOWN = 3, DESCRIPTION = 24 };
    unsigned char *const bytes = image;
    if (!is_open(handle) || selector < MAPI_CONFIG_RUNNING || selector > MAPI_CONFIG_CUSTOMER_DEFAULT) return -1;
    memset(bytes, 0, MAPI_CONFIG_IMAGE_SIZE);
    if (selector == MAPI_CONFIG_RUNNING) {
        bytes[PORTS + 27 * PORT_SIZE + SHUT_DOWN] = 1;
        memcpy(bytes + PORTS + 2 * PORT_SIZE + DESCRIPTION, "to the stub", 11);
        memcpy(bytes + PORTS + 6 * PORT_SIZE + DESCRIPTION, "to the stub", 11);
    }
    return 0;
}

int32_t mapi_sys_dualimage_state_get(int32_t handle) { return is_open(handle) ? 2 : 0; }

int32_t mapi_sys_userauth_method_get(int32_t handle) { return handle == MAPI_NO_TRANSACTION ? 0 : 1; }

int32_t mapi_sys_userauth_password_md5_get(int32_t handle, const char *password, char *md5) {
    (void)handle;
    (void)password;
    md5[0] = '\0';
    return -1;
}

#endif
#ifndef STUB_WITHOUT_UTIL
/* -------------------------------------------------------------------------------------------- utility operations */

int utilBitmapCheck(const void *bitmap, int bit) {
    const unsigned char *const bytes = bitmap;
    return bytes[bit / 8] >> bit % 8 & 1;
}

int utilBitmapIsAllClear(const void *bitmap, int count) {
    for (int bit = 0; bit < count; ++bit)
        if (utilBitmapCheck(bitmap, bit)) return 0;
    return 1;
}

void utilBitmapSetAll(void *bitmap, int count) {
    unsigned char *const bytes = bitmap;
    for (int bit = 0; bit < count; ++bit) bytes[bit / 8] = (unsigned char)(bytes[bit / 8] | 1U << bit % 8);
}

void utilBitmapNand(void *bitmap, const void *source, int count) {
    unsigned char *const bytes = bitmap;
    for (int bit = 0; bit < count; ++bit)
        if (utilBitmapCheck(source, bit)) bytes[bit / 8] = (unsigned char)(bytes[bit / 8] & ~(1U << bit % 8));
}

/* Three neighbours or more are a run; two are listed, each for itself. */
void utilPortBitmap2str(char *text, const void *bitmap, int portCount, int maximumPort) {
    size_t length = 0;
    text[0] = '\0';
    (void)maximumPort;
    for (int first = 0; first < portCount; ++first) {
        int last = first;
        if (!utilBitmapCheck(bitmap, first)) continue;
        while (last + 1 < portCount && utilBitmapCheck(bitmap, last + 1)) ++last;
        if (last == first + 1) last = first;
        length += (size_t)snprintf(text + length, UTIL_PORT_LIST_SIZE - length, last == first ? "%s%d" : "%s%d-%d",
                                   length == 0 ? "" : ",", first + 1, last + 1);
        first = last;
    }
}

void utilIp2IpStr(const void *address, char *text) {
    const unsigned char *const octets = address;
    snprintf(text, UTIL_ADDRESS_SIZE, "%d.%d.%d.%d", octets[0], octets[1], octets[2], octets[3]);
}

int utilIpIsZero(uint32_t address) { return address == 0; }

char *utilIPv6Addr2Str(char *text, const void *address) {
    char written[INET6_ADDRSTRLEN] = "";
    struct in6_addr octets; /* aligned, as an address in a record need not be */
    memcpy(&octets, address, sizeof octets);
    inet_ntop(AF_INET6, &octets, written, sizeof written);
    return strcpy(text, written); /* writes nothing after the NUL, which inet_ntop may */
}

int utilIpv6AddrIsZero(const void *address) {
    static const unsigned char zero[16];
    return memcmp(address, zero, sizeof zero) == 0;
}

int utilIpv6AddrIsIpv4(const void *address) {
    static const unsigned char mapped[12] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff};
    return memcmp(address, mapped, sizeof mapped) == 0;
}

void utilAry2Str(const void *bytes, int length, char *text) {
    const unsigned char *const from = bytes;
    for (int i = 0; i < length; ++i) sprintf(text + 2 * i, "%02X", from[i]);
}

void utilParseArgs(const char *text, const char *separator, int maximum, char (*fields)[UTIL_FIELD_SIZE]) {
    for (int i = 0; i < maximum; ++i) {
        const char *const end = i + 1 < maximum ? strstr(text, separator) : NULL;
        const size_t length = end != NULL ? (size_t)(end - text) : strlen(text);
        memcpy(fields[i], text, length);
        fields[i][length] = '\0';
        text += length;
        if (end != NULL) text += strlen(separator);
    }
}

int osPrintfConsole(const char *format, ...) {
    va_list arguments;
    int printed;
    va_start(arguments, format);
    printed = vfprintf(stderr, format, arguments);
    va_end(arguments);
    return printed;
}
#endif
