#include "base/failure_reason.h"

#include <string>

#include "base/code_page.h"

namespace qor {

namespace {

// Those that begin and end with a part come last.
constexpr const char* motivos[] = {
    "The file has more than %1 megabytes",
    "The file became shorter while it was read",
    "The file is incomplete",
    "A document can't have the name of its own work file",
    "The name is that of the work file",
    "The rehearsal has read this file",
    "A newer release of this program has made it",
    "An older release of this program has made it; it has to be opened once where it can be written",
    "No recording and no session",
    "a record that is wider than 32767 characters",
    "a record of more than 10001 lines",
    "more than 1001 field definitions",
    "a number beyond 16 bits in a field definition",
    "a number beyond 16 bits",
    "a text where a number belongs",
    "the file ends inside a record",
    "the document has more rows than the table holds",
    "a text of more than 501 lines",
    "a copy of work that is cut off",
    "no copy of work",
    "the file name has a character outside windows-1252",
    "a substring of negative length",
    "a substring in front of the first character",
    "a padding below zero: a text is too long for its place",
    "the step-loop marks of a field stand in the wrong order: %1",
    "a value-pair line without exactly four apostrophes",
    "a line with fewer than four apostrophes where two texts belong",
    "more than 5000 lines in one chain",
    "a text with a control character can't be part of a query",
    "the recording ends inside a field",
    "the program side is full",
    "the type of a scalar parameter names no field",
    "line %1 of the field file holds a control character",
    "no directory for temporary files can be made",
    "a BAPI in front of any business object",
    "documentation in front of any BAPI",
    "the catalogue is empty",
    "the list of BAPIs can't be had",
    "the BAPI %1 can't be had",
    "no free name for the parameter %1",
    "the specification has no room for another BAPI",
    "the list of examples has a line that can't be read: %1",
    "there are too many keys",
    "there are more files than the document has",
    "the file is in UTF-16; allowed are windows-1252 and UTF-8",
    "%1: the list, a text file whose name is relative to the document, can't be read: %2",
    "line %1 of the list is no UTF-8, or has a character outside windows-1252, which no value can have",
    "no UTF-8, or a character outside windows-1252; the file has to be in UTF-8",
    "the name of the field is blank, and a statement begins with it",
    "the name of the field has no second quote",
    "%1: \"%2\" or what stands in its place was said of the field already; once is allowed",
    "%1: something stands behind \"required\", where nothing is allowed",
    "%1: behind \"number\" stands its decimal sign, \".\" or \",\"",
    "%1: \"%2\" is no form of a date; it has DD, MM and YY or YYYY, each once, such as DD.MM.YYYY",
    "%1: behind \"pattern\" stands a regular expression",
    "%1: the pattern is no regular expression that is allowed: %2",
    "%1: behind \"list\" stands the name of a file of values, relative to the document",
    "%1: nothing stands behind the name; allowed are \"required\", \"number\" with \".\" or \",\", \"date\" with its form, "
    "\"pattern\" and \"list\"",
    "%1: \"%2\" says nothing of a field; allowed are \"required\", \"number\" with \".\" or \",\", \"date\" with its form, "
    "\"pattern\" and \"list\"",
    "the pattern is too large",
    "the pattern has a \")\" too many",
    "the pattern ends too early",
    "the pattern is too deep",
    "the pattern has a \"(?\" that is not supported",
    "the pattern lacks a \"%1\"",
    "the pattern has a \"%1\" behind nothing",
    "the pattern has no number behind a \"{\" or \",\"",
    "the pattern has a number beyond %1",
    "the pattern has its numbers in the wrong order",
    "the pattern has a \"%1\" that is not supported",
    "the pattern has no two hexadecimal digits behind \"\\x\"",
    "the pattern has a range of what is no single character",
    "the pattern has a range in the wrong order",
    "The SAP NetWeaver RFC library can't be loaded: %1.",
    "The SAP NetWeaver RFC library%1 has no function %2. Please install a newer release of it.",
    "There is no connection to the SAP system",
    "The function module %1 can't be called: %2",
    "The SAP system has not answered within %1 second",
    "The SAP system has not answered within %1 seconds",
    "line %1: %2",
    "%1, line %2: %3",
};

}  // namespace

std::span<const char* const> MotivosConocidos() { return motivos; }

Frase FraseDeMotivo(std::string_view motivo) {
    for (const char* const ingles : motivos) {
        if (const auto frase = ReconocerFrase(motivo, ingles)) return frase->Con(FraseDeMotivo);
    }
    return Frase(std::string(motivo));
}

Frase FraseDeFallo(const FalloDeEjecucion& fallo) {
    const auto* const deArchivo = dynamic_cast<const FalloDeArchivo*>(&fallo);
    if (deArchivo == nullptr) return FraseDeMotivo(fallo.what());
    return Frase("%1: %2", {FraseDeMotivo(DesdeUtf8ConFaltas(fallo.what())), DesdeUtf8ConFaltas(deArchivo->Ruta().string())});
}

}  // namespace qor
