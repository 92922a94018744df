// Platform trace back end.
#ifndef EMW_GEN_TRC_H
#define EMW_GEN_TRC_H

#ifdef __cplusplus
extern "C" {
#endif

// The identifiers name the emitting library; the level is 3 for ordinary flow, 0 for failures.
// The result carries no meaning for callers.
int emwGENTrcPrintf(unsigned int id, unsigned int sub_id, int level, const char* format, ...)
    __attribute__((format(printf, 4, 5)));

#ifdef __cplusplus
}
#endif

#endif
