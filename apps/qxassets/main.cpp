#include <cstdio>

int main(int argc, char** argv) {
  (void)argv;
  if (argc < 2) {
    std::fputs("usage: qxassets COMMAND ...\n", stderr);
    return 2;
  }
  return 0;
}
