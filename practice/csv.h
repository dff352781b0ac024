#pragma once

#include <string>
#include <string_view>
#include <vector>

// Comma-separated values as RFC 4180 has them: fields between commas, those with a comma, a quote or a line end between quotes, in
// which two quotes are one. Lines end with CR LF, LF or CR.
namespace qor {

struct LineaCsv {
    std::size_t linea = 0;  // where it begins in the text, from 1
    std::vector<std::string> campos;
};

// Goes through a text. Texts come as windows-1252, from a text in that code page or in UTF-8, with its mark in front or without.
class LectorCsv {
public:
    // The text has to live as long as this.
    explicit LectorCsv(std::string_view texto);

    // The next line; false at the end. Empty lines at the end of the text are no lines. Throws FalloDeEjecucion, with the line, for
    // a quote that is not closed or has something behind it, and for a character that windows-1252 lacks.
    bool Siguiente(LineaCsv& linea);

private:
    bool EsFinDeLinea() const;
    void SaltarFinDeLinea();
    std::string LeerCampo();
    std::string EnPagina(std::string_view campo) const;
    [[noreturn]] void Fallar(const std::string& motivo) const;

    std::string_view texto_;
    bool utf8_ = false;
    std::size_t lugar_ = 0;
    std::size_t linea_ = 1;
    std::size_t lineaDeCampo_ = 1;
};

// A field as such a file holds it.
std::string CampoCsv(std::string_view valor);

}  // namespace qor
