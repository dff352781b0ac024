#include <iostream>

#include "app/command_line.h"

int main(int cantidad, char** argumentos) {
    return qor::EjecutarQorgen({argumentos + 1, argumentos + cantidad}, std::cout, std::cerr);
}
