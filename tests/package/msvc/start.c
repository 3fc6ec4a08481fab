/* Where the program begins, which an SDK's libraries would bring. */

int main(int argc, char** argv);
void __getmainargs(int* argc, char*** argv, char*** environment, int expands_wildcards, int* mode);
void exit(int code);

void start(void) {
  int argc, mode = 0;
  char **argv, **environment;
  __getmainargs(&argc, &argv, &environment, 0, &mode);
  exit(main(argc, argv));
}
