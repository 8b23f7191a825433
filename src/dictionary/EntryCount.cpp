#include "dictionary/EntryCount.hpp"

namespace karvel {

EntryCount countEntries(ByteSource& dictionary)
{
    EntryCount count;
    FieldReader fields(dictionary);
    try {
        while (!fields.atEnd()) {
            (void)fields.field();
            ++count.entries;
            for (int i = 0; i < 4; ++i) {
                (void)fields.field();
            }
        }
    } catch (const RuntimeError& failure) {
        count.failure = failure;
    }
    return count;
}

}  // namespace karvel
