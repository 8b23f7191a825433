#include "windows/Application.hpp"

int main(int argc, char** argv)
{
    return karvel::runApplication(argc, argv);
}
