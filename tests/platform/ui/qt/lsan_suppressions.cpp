// fontconfig, loaded by Qt's text drawing, keeps its caches for the life of
// the process; the leak checker is told so here rather than in every runner.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
