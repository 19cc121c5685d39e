#include "table.h"

KRT_PLX_Api KRT_PLX_loadedTable;

bool KRT_PLX_loadForAll(const KRT_PLX_PathChar* path, KRT_PLX_LoadReport report, void* context)
{
    KRT_PLX_Api loaded;
    if (KRT_PLX_loadedTable.library != NULL) {
        KRT_PLX_loader_report(report, context, KRT_PLX_LOAD_NOT_LOADED,
                              "a library is loaded already");
        return false;
    }
    /* Into a table of its own, because a report may call the functions. */
    if (!KRT_PLX_load(&loaded, path, report, context)) {
        return false;
    }
    KRT_PLX_loadedTable = loaded;
    return true;
}

bool KRT_PLX_unloadForAll(void)
{
    return KRT_PLX_unload(&KRT_PLX_loadedTable);
}
