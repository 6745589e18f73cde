// The least that a renamer can do: the last 128 bytes of every file of a folder are read, and the file gets
// the name that they hold, or a number.
#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

struct Names {
    char** names;
    size_t count;
};

static struct Names ListFolder(void) {
    struct Names names = {NULL, 0};
    size_t capacity = 0;
    DIR* folder = opendir(".");
    if (folder == NULL) exit(1);
    for (struct dirent* entry; (entry = readdir(folder)) != NULL;) {
        if (entry->d_type != DT_REG) continue;
        if (names.count == capacity) {
            capacity = capacity == 0 ? 1024 : capacity * 2;
            names.names = realloc(names.names, capacity * sizeof *names.names);
            if (names.names == NULL) exit(1);
        }
        names.names[names.count++] = strdup(entry->d_name);
    }
    closedir(folder);
    return names;
}

static void CutBlanks(char* text) {
    size_t length = strlen(text);
    while (length > 0 && text[length - 1] == ' ') text[--length] = '\0';
}

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2 || chdir(arguments[1]) != 0) return 2;
    const struct Names names = ListFolder();
    for (size_t i = 0; i < names.count; ++i) {
        const int file = open(names.names[i], O_RDONLY);
        if (file == -1) continue;
        char tag[129] = {0};
        const off_t size = lseek(file, 0, SEEK_END);
        const ssize_t count = pread(file, tag, 128, size - 128);
        close(file);
        char title[31] = {0};
        char artist[31] = {0};
        memcpy(title, tag + 3, 30);
        memcpy(artist, tag + 33, 30);
        CutBlanks(title);
        CutBlanks(artist);
        char fresh[128];
        if (count == 128 && memcmp(tag, "TAG", 3) == 0) {
            snprintf(fresh, sizeof fresh, "%s - %s.MP3", artist, title);
        } else {
            snprintf(fresh, sizeof fresh, "Number %zu%s", i, strrchr(names.names[i], '.'));
        }
        if (rename(names.names[i], fresh) != 0) return 1;
    }
    return 0;
}
