/* The least that a program does for a small drawing: it reads a file and writes as many bytes to a
   new one, which replaces another. */
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

int main(int count, char** arguments) {
  if (count != 3) return 2;
  const int from = open(arguments[1], O_RDONLY);
  struct stat status;
  if (from < 0 || fstat(from, &status) != 0) return 1;
  const size_t size = (size_t)status.st_size;
  char* const bytes = malloc(size);
  if (bytes == NULL || read(from, bytes, size) != status.st_size) return 1;
  close(from);
  char part[4096];
  const int length = snprintf(part, sizeof part, "%s.part", arguments[2]);
  if (length < 0 || (size_t)length >= sizeof part) return 1;
  const int to = open(part, O_WRONLY | O_CREAT | O_TRUNC, 0644);
  if (to < 0 || write(to, bytes, size) != status.st_size) return 1;
  close(to);
  free(bytes);
  return rename(part, arguments[2]) == 0 ? 0 : 1;
}
