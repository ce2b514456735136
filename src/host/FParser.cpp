#include "host/FParser.h"

#include <memory>

namespace annotra {

FParser::FParser()
    : Form("FParser", "Parser"),
      parserXML(std::make_shared<platform::grammar::GrammarParser>()),
      parserBody(std::make_shared<platform::grammar::GrammarParser>()) {}

}  // namespace annotra
