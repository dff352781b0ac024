#pragma once

#include <iosfwd>
#include <map>

#include "base/view.h"

namespace qor {

// The view of the command line. A message is one line "N: text" on `errores`, where N is the number of the first message that it
// was built from; a question is such a line with its answer behind it, in brackets. What the system said about a file follows on a
// line of its own, behind two blanks. Texts of the text window go to `salida`. Both are UTF-8 with LF.
class VistaDeConsola : public VistaSinPantalla {
public:
    // With `siATodo` every question is answered with yes or OK, else with no, or with cancel where there is no "no".
    VistaDeConsola(std::ostream& salida, std::ostream& errores, bool siATodo)
        : salida_(salida), errores_(errores), siATodo_(siATodo) {}

    // The answer to the question that begins with this message, whatever `siATodo` says.
    void Responder(int mensaje, Respuesta respuesta) { respuestas_[mensaje] = respuesta; }

    void Mostrar(const Mensaje& mensaje, Icono icono) override;
    Respuesta Preguntar(const Mensaje& mensaje, Botones botones) override;
    void MostrarTexto(const std::string& texto) override;

private:
    std::ostream& salida_;
    std::ostream& errores_;
    bool siATodo_;
    std::map<int, Respuesta> respuestas_;
};

// A text of the model as the terminal takes it: UTF-8, with LF at line ends.
std::string TextoDeTerminal(std::string_view texto);

// A path as the terminal takes it: what would do something there, or is no UTF-8, is written like \x1B.
std::string RutaDeTerminal(const std::filesystem::path& ruta);

}  // namespace qor
