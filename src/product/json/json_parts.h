#pragma once

#include "product/json/json_texts.h"
#include "product/product.h"

namespace vrix {

// The members of a Product's JSON, group by group: written from the Product's keys, and read back into them. A group
// writes only what its reader gives back as it stands; the rest of a key goes into "other".

Json identityOf(const Product& product);
ProductId readIdentity(const Json& json);

void addOptions(Json& json, const Product& product);
void readOptions(const Json& options, StoredKey& key);

// Topics of both lists with their indexes and dependency rows.
void addTopics(Json& json, const Product& product);
void readTopics(const Json& json, Product& product);

void addSmartFields(Json& json, const Product& product);
void readSmartFields(const Json& fields, StoredKey& key);

}  // namespace vrix
