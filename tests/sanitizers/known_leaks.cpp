// Linked into whatever runs under a sanitizer: leaks that are not ours.

// fontconfig loses a few hundred bytes when it reads its configuration, once a process.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}

// What a program says on its error channel stays its own.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options()
{
    return "print_suppressions=0";
}
