// Apart from everything else, which tests call with surroundings of their own.
#include "cli/native_surroundings.h"
#include "cli/vw.h"

int main(int count, char** arguments) {
    Surroundings surroundings = NativeSurroundings();
    const int code = RunVw(NativeArguments(count, arguments), surroundings);
    EndSurroundings(surroundings);
    return code;
}
