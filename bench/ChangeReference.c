// The least that a change of tags can do to every MP3 file of a folder: "place" reads the tag at the start
// and the 128 bytes at the end and writes as many bytes there; "grow" puts a tag of 512 bytes in front of a
// copy, which takes the file's place once it is on the disk.
#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

enum { TagLength = 512, EndLength = 128, BlockLength = 44100 };

static char block[BlockLength];

static int Rewrite(const char* name) {
    const int file = open(name, O_RDWR);
    if (file == -1) return -1;
    struct stat status;
    fstat(file, &status);
    char end[EndLength];
    const off_t endPlace = status.st_size - EndLength;
    if (pread(file, block, TagLength, 0) != TagLength || pread(file, end, EndLength, endPlace) != EndLength)
        return -1;
    block[TagLength - 1] ^= 1;
    end[EndLength - 2] ^= 1;
    const int done =
        pwrite(file, block, TagLength, 0) == TagLength && pwrite(file, end, EndLength, endPlace) == EndLength;
    close(file);
    return done ? 0 : -1;
}

static int Copy(int from, int to) {
    memset(block, 0, TagLength);
    if (write(to, block, TagLength) != TagLength) return -1;
    for (ssize_t count; (count = read(from, block, BlockLength)) != 0;) {
        if (count < 0 || write(to, block, (size_t)count) != count) return -1;
    }
    return fsync(to);
}

static int Grow(const char* name) {
    char fresh[512];
    snprintf(fresh, sizeof fresh, "%s.tmp", name);
    const int from = open(name, O_RDWR);
    const int to = open(fresh, O_RDWR | O_CREAT | O_EXCL, 0644);
    if (from == -1 || to == -1) return -1;
    // The tag at the end as well.
    const off_t end = lseek(from, 0, SEEK_END);
    if (pwrite(from, block, EndLength, end) != EndLength) return -1;
    lseek(from, 0, SEEK_SET);
    const int copied = Copy(from, to);
    close(from);
    close(to);
    if (copied != 0 || rename(fresh, name) != 0) return -1;
    const int folder = open(".", O_RDONLY | O_DIRECTORY);
    fsync(folder);
    close(folder);
    return 0;
}

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3 || chdir(arguments[2]) != 0) return 2;
    int (*const change)(const char*) = strcmp(arguments[1], "grow") == 0 ? Grow : Rewrite;
    static char* names[1 << 20];
    size_t count = 0;
    DIR* folder = opendir(".");
    if (folder == NULL) return 1;
    for (struct dirent* entry; (entry = readdir(folder)) != NULL;) {
        if (entry->d_type == DT_REG && count < sizeof names / sizeof *names)
            names[count++] = strdup(entry->d_name);
    }
    closedir(folder);
    for (size_t i = 0; i < count; ++i) {
        if (change(names[i]) != 0) return 1;
    }
    return 0;
}
