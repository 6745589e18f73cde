// The least that a lister can do: every file of a folder is opened, read at five places, closed and printed.
#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2 || chdir(arguments[1]) != 0) return 2;
    DIR* folder = opendir(".");
    if (folder == NULL) return 1;
    for (struct dirent* entry; (entry = readdir(folder)) != NULL;) {
        if (entry->d_type != DT_REG) continue;
        const int file = open(entry->d_name, O_RDONLY);
        if (file == -1) continue;
        // Where tags are: at the start, behind it, in the middle, at the end.
        static const off_t places[] = {0, 10, 2048, 8192, 16384};
        char bytes[128];
        unsigned sum = 0;
        for (size_t i = 0; i < sizeof places / sizeof *places; ++i) {
            const ssize_t count = pread(file, bytes, sizeof bytes, places[i]);
            if (count > 0) sum += (unsigned char)bytes[count - 1];
        }
        close(file);
        printf("%s\t%u\n", entry->d_name, sum);
    }
    closedir(folder);
    return 0;
}
