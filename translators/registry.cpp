// Every translator written so far, by the name the dispatch table gives it.
#include "pipeline/translator.hpp"

namespace corvane {

extern const Translator kAccessTranslator;
extern const Translator kABRATranslator;
extern const Translator kAlohaV5313Translator;
extern const Translator kAlohav6542Translator;
extern const Translator kAlohav6544Translator;
extern const Translator kAlohav6722Translator;
extern const Translator kAlohav5326Translator;
extern const Translator kAlohav6738Translator;

const Translator* FindTranslator(std::string_view name) {
  static const Translator* const kAll[] = {
      &kAccessTranslator,     &kABRATranslator,       &kAlohaV5313Translator,
      &kAlohav6542Translator, &kAlohav6544Translator, &kAlohav6722Translator,
      &kAlohav5326Translator, &kAlohav6738Translator,
  };
  if (name.empty()) return nullptr;
  for (const Translator* t : kAll) {
    if (t->name == name) return t;
  }
  return nullptr;
}

}  // namespace corvane
