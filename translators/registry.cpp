// Every translator written so far, by the name the dispatch table gives it.
#include "pipeline/translator.hpp"

namespace corvane {

extern const Translator kAccessTranslator;
extern const Translator kABRATranslator;

const Translator* FindTranslator(std::string_view name) {
  static const Translator* const kAll[] = {
      &kAccessTranslator,
      &kABRATranslator,
  };
  if (name.empty()) return nullptr;
  for (const Translator* t : kAll) {
    if (t->name == name) return t;
  }
  return nullptr;
}

}  // namespace corvane
