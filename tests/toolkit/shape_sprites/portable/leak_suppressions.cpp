// Fontconfig keeps the addresses of what it holds as offsets, in which the leak
// sanitizer sees no pointers. What the program itself loses is still told.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
