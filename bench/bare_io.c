/* The least that reading a store and writing a text costs: the system calls of textcfg with its stand-in, and nothing
   between them. Reads the board record and the two images of a store and writes so many bytes:
   bare_io FOLDER BYTES FILE */
#define _GNU_SOURCE
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

enum { imageSize = 262144, boardSize = 244, textSize = 262144 };

static char current[imageSize];
static char defaults[imageSize];
static char board[boardSize];
static char text[textSize];

static int readRecord(const char *folder, const char *name, char *bytes, size_t size) {
    const int directory = open(folder, O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (directory == -1) return 0;
    const int file = openat(directory, name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    close(directory);
    if (file == -1) return 0;
    struct stat status;
    int whole = fstat(file, &status) == 0 && status.st_size == (off_t)size;
#ifdef MADV_POPULATE_WRITE
    const uintptr_t before = (uintptr_t)bytes % (uintptr_t)sysconf(_SC_PAGESIZE);
    madvise(bytes - before, size + before, MADV_POPULATE_WRITE);
#endif
    whole = whole && read(file, bytes, size) == (ssize_t)size;
    close(file);
    return whole;
}

int main(int argc, char **argv) {
    if (argc != 4) return 2;
    const size_t length = strtoul(argv[2], NULL, 10);
    if (length == 0 || length > sizeof text) return 2;
    if (!readRecord(argv[1], "board.img", board, sizeof board) ||
        !readRecord(argv[1], "running.img", current, sizeof current) ||
        !readRecord(argv[1], "default.img", defaults, sizeof defaults))
        return 1;
    memset(text, 'x', length); /* whoever writes a text has to put it somewhere */
    FILE *const file = fopen(argv[3], "w+");
    if (file == NULL) return 1;
    setvbuf(file, NULL, _IONBF, 0);
    const int written = fwrite(text, 1, length, file) == length;
    return fclose(file) == 0 && written ? 0 : 1;
}
