#include <iostream>

#include "app/command_line.h"
#include "app/standard_output.h"
#include "base/file_calls.h"

int main(int cantidad, char** argumentos) {
    qor::PrepararProceso();
    qor::SalidaEstandar salida;
    std::cout.rdbuf(&salida);
    const int estado = qor::EjecutarQorgen({argumentos + 1, argumentos + cantidad}, std::cout, std::cerr);
    std::cout.rdbuf(nullptr);
    return estado;
}
