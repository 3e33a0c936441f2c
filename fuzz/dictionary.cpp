// Prints the words of the format as a dictionary for the fuzzer, as names, start tags and
// attributes.

#include <cstdio>

#include "vantry/base/vocabulary.h"

int main() {
  for (int id = 1; id <= vantry::base::wordCount; ++id) {
    const char* word = vantry::base::tokenById(id).str();
    std::printf("\"%s\"\n\"<%s>\"\n\"</%s>\"\n\" %s=\\\"\"\n", word, word, word, word);
  }
  for (const char* part : {"<P3>", "</P3>", "<P2>", "nan", "inf", "2147483647", "#ff0000", "/>"}) {
    std::printf("\"%s\"\n", part);
  }
}
