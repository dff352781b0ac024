#pragma once

// What the last call of Windows failed with, as an error number of C.
namespace qor::sistema {

// Sets errno and answers -1.
int FallarComoC();

}  // namespace qor::sistema
