// The engine as a module for pages: one call.
#include <emscripten.h>
#include <string>

#include "web/desk.h"

extern "C" {

// The answer to a request, a text in memory of malloc's; it stays until the next.
EMSCRIPTEN_KEEPALIVE const char* korvane_answer(const char* request) {
    static korvane::web::Desk desk("/rules");
    static std::string answer;
    answer = desk.Answer(request);
    return answer.c_str();
}
}
