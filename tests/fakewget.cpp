// Stands in for wget where a test must see exactly what the grabber hands over: it records
// its argument vector, element 0 included, and plays the part of a download.
//   FAKE_WGET_RECORD  file that receives "argc=N" and then every element as "[...]", a line each
//   FAKE_WGET_PAGE    file whose bytes are written to the output file (element 3)
//   FAKE_WGET_STATUS  exit status (0 unless set)
#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    if (const char *record = std::getenv("FAKE_WGET_RECORD")) {
        if (FILE *out = std::fopen(record, "a")) {
            std::fprintf(out, "argc=%d\n", argc);
            for (int i = 0; i < argc; ++i)
                std::fprintf(out, "[%s]\n", argv[i]);
            std::fclose(out);
        }
    }
    const char *page = std::getenv("FAKE_WGET_PAGE");
    if (page && argc > 3) {
        FILE *in = std::fopen(page, "rb");
        FILE *out = std::fopen(argv[3], "wb");
        if (in && out) {
            char buffer[4096];
            size_t got;
            while ((got = std::fread(buffer, 1, sizeof buffer, in)) > 0)
                std::fwrite(buffer, 1, got, out);
        }
        if (in)
            std::fclose(in);
        if (out)
            std::fclose(out);
    }
    const char *status = std::getenv("FAKE_WGET_STATUS");
    return status ? std::atoi(status) : 0;
}
