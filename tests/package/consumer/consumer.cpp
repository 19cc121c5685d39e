// The same as consumer.c, in C++.

#include <cstdint>
#include <iostream>
#include <korvel/plx.h>
#include <string>

namespace {

using String = std::basic_string<KRT_PLX_Char>;

String widened(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

using CountFunction = bool (*)(KRT_PLX_Manager*, std::uint64_t*);

std::uint64_t numberOf(CountFunction function, KRT_PLX_Manager* manager)
{
    std::uint64_t number = 0;
    return function(manager, &number) ? number : 0;
}

} // namespace

int main()
{
    std::uint32_t code = KRT_PLX_RESULT_OK;
    KRT_PLX_Manager* manager =
        KRT_PLX_CreateManager(widened("consumer").c_str(), widened("library/system").c_str(),
                              widened("library/user").c_str(), nullptr, 0, nullptr, 0, &code);
    code = KRT_PLX_Manager_readAllClipFiles(manager);
    std::cout << "krt_plx " KRT_PLX_VERSION ": "
              << numberOf(KRT_PLX_Manager_numSystemClips, manager) << " system clips, "
              << numberOf(KRT_PLX_Manager_numUserClips, manager) << " user clips\n";
    KRT_PLX_Manager_destroy(manager);
    return code == KRT_PLX_RESULT_OK ? 0 : 1;
}
