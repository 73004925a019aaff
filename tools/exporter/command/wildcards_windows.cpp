// Command prompts leave patterns such as "*.sqlite" to the program here; asked by this
// variable, the C library expands them before main.
extern "C" {
extern int _dowildcard;
int _dowildcard = -1;
}
