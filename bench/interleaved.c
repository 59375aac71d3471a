/* Times commands against each other: bench_interleaved ROUNDS -- COMMAND... -- COMMAND...

   Each round runs every command once, in an order that is drawn anew, so that whatever slows the machine down for a
   while, or follows from the command before, falls on all of them. Prints a line for each command: the median and the
   least of its times in microseconds. A command that fails ends the measurement. */
#define _GNU_SOURCE
#include <fcntl.h>
#include <spawn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <time.h>

enum { mostCommands = 16, warmUp = 20 };

extern char **environ;

static double run(char **command, const posix_spawn_file_actions_t *actions) {
    struct timespec begin;
    struct timespec end;
    pid_t child = 0;
    int status = 0;
    clock_gettime(CLOCK_MONOTONIC, &begin);
    if (posix_spawnp(&child, command[0], actions, NULL, command, environ) != 0 || waitpid(child, &status, 0) != child ||
        status != 0) {
        fprintf(stderr, "bench_interleaved: %s failed\n", command[0]);
        exit(1);
    }
    clock_gettime(CLOCK_MONOTONIC, &end);
    return (double)(end.tv_sec - begin.tv_sec) * 1e6 + (double)(end.tv_nsec - begin.tv_nsec) / 1e3;
}

static int compare(const void *a, const void *b) {
    const double one = *(const double *)a;
    const double other = *(const double *)b;
    return (one > other) - (one < other);
}

int main(int argc, char **argv) {
    const size_t rounds = argc > 1 ? strtoul(argv[1], NULL, 10) : 0;
    char **commands[mostCommands];
    size_t count = 0;
    for (int i = 2; i < argc; ++i) {
        if (strcmp(argv[i], "--") != 0) continue;
        argv[i] = NULL; /* the end of the command before */
        if (count == mostCommands || i + 1 == argc) return 2;
        commands[count++] = argv + i + 1;
    }
    if (rounds == 0 || count == 0) {
        fprintf(stderr, "usage: bench_interleaved ROUNDS -- COMMAND... [-- COMMAND...]\n");
        return 2;
    }
    double *const times = calloc(rounds * count, sizeof *times);
    if (times == NULL) return 1;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (int descriptor = 0; descriptor < 3; ++descriptor)
        posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", O_RDWR, 0);

    size_t order[mostCommands];
    for (size_t i = 0; i < count; ++i) order[i] = i;
    for (size_t round = 0; round < rounds + warmUp; ++round) {
        for (size_t i = count - 1; i > 0; --i) {
            const size_t other = (size_t)rand() % (i + 1);
            const size_t kept = order[i];
            order[i] = order[other];
            order[other] = kept;
        }
        for (size_t i = 0; i < count; ++i) {
            const double time = run(commands[order[i]], &actions);
            if (round >= warmUp) times[order[i] * rounds + round - warmUp] = time;
        }
    }
    for (size_t i = 0; i < count; ++i) {
        double *const own = times + i * rounds;
        qsort(own, rounds, sizeof *own, compare);
        const double median = rounds % 2 != 0 ? own[rounds / 2] : (own[rounds / 2 - 1] + own[rounds / 2]) / 2;
        printf("%.1f %.1f\n", median, own[0]);
    }
    free(times);
    return 0;
}
