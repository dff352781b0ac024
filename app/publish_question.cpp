#include "app/publish_question.h"

#include <string>
#include <utility>

#include "base/code_page.h"
#include "base/text.h"

namespace qor {

namespace {

Mensaje PreguntaPorErrores(int errores, const TextosIdioma& textos) {
    const std::string cuantos = std::to_string(errores);
    if (!IgualesSinCaja(textos.Texto(0), "Espanol")) {
        return MensajeLiteral("The report has " + cuantos + (errores == 1 ? " error" : " errors") +
                              ", which the pane \"Findings\" tells of. Publish it all the same?");
    }
    return MensajeLiteral(DesdeUtf8ConFaltas("El report tiene " + cuantos + (errores == 1 ? " error" : " errores") +
                                             ", que muestra el panel \"Hallazgos\". ¿Publicarlo de todos modos?"));
}

}  // namespace

DialogoABAP TrasPreguntarPorErrores(DialogoABAP FormABAP, std::function<int()> errores, const TextosIdioma& textos, Vista& vista) {
    return [FormABAP = std::move(FormABAP), errores = std::move(errores), &textos, &vista](const std::string& propuesto) {
        const int cuantos = errores();
        const bool sigue = cuantos == 0 || vista.Preguntar(PreguntaPorErrores(cuantos, textos), Botones::SiNo) == Respuesta::Si;
        return sigue ? FormABAP(propuesto) : std::string();
    };
}

}  // namespace qor
