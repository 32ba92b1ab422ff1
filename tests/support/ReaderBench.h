#pragma once

#include "inbound/MessageReader.h"
#include "support/Bench.h"

/// With the interpreter of messages behind the watcher.
struct ReaderBench : Bench {
    ReaderBench()
    {
        link.watcher.Read_SMS_MessageTEXT = [this] { reader.Read_SMS_MessageTEXT(); };
    }

    std::function<void()> shown = [] {}; ///< stands in for VisBrukerTabell
    MessageReader reader{link, module, recordsets, view, clock, host, [this] { shown(); }};
};
