#include "app/publish_question.h"

#include <string>
#include <utility>

#include "base/words.h"

namespace qor {

DialogoABAP TrasPreguntarPorErrores(DialogoABAP FormABAP, std::function<int()> errores, const TextosIdioma& textos, Vista& vista) {
    return [FormABAP = std::move(FormABAP), errores = std::move(errores), &textos, &vista](const std::string& propuesto) {
        const int cuantos = errores();
        const auto pregunta = MensajeDePalabra(textos, cuantos == 1 ? palabra::PublicarConUnError : palabra::PublicarConErrores,
                                               {std::to_string(cuantos)});
        const bool sigue = cuantos == 0 || vista.Preguntar(pregunta, Botones::SiNo) == Respuesta::Si;
        return sigue ? FormABAP(propuesto) : std::string();
    };
}

}  // namespace qor
