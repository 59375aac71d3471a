/*
 * Prints what the utility operations write for sets of ports and for addresses of many shapes, one text a line.
 */
#include "platform/util.h"

#include <stdio.h>

int main(void) {
    char text[UTIL_ADDRESS_SIZE > UTIL_PORT_LIST_SIZE ? UTIL_ADDRESS_SIZE : UTIL_PORT_LIST_SIZE];
    /* Every set of seven neighbouring ports, at either end and between bytes. */
    for (unsigned set = 0; set < 128; ++set)
        for (unsigned first = 0; first <= 21; first += 7) {
            const unsigned ports = set << first;
            const unsigned char bitmap[4] = {(unsigned char)ports, (unsigned char)(ports >> 8),
                                             (unsigned char)(ports >> 16), (unsigned char)(ports >> 24)};
            utilPortBitmap2str(text, bitmap, 28, 28);
            puts(text);
        }
    /* Every choice of zero words in an address. */
    for (unsigned set = 0; set < 256; ++set) {
        unsigned char address[16];
        for (unsigned i = 0; i < 16; ++i) address[i] = (unsigned char)((set >> i / 2 & 1) * (i + 9));
        puts(utilIPv6Addr2Str(text, address));
        utilIp2IpStr(address, text);
        puts(text);
        utilAry2Str(address, 2, text);
        puts(text);
    }
    return 0;
}
