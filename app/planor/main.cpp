#include "core/ui/main.h"

int main(int argc, char** argv)
{
    return planor::Main(argc, argv);
}
