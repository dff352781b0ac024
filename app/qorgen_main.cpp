#include <iostream>

#include "app/command_line.h"
#include "app/standard_output.h"
#include "base/process.h"

int main(int cantidad, char** argumentos) {
    qor::PrepararProceso();
    qor::SalidaEstandar salida;
    std::cout.rdbuf(&salida);
    const int estado = qor::EjecutarQorgen(qor::ArgumentosDelProceso(cantidad, argumentos), std::cout, std::cerr);
    std::cout.rdbuf(nullptr);
    return estado;
}
