// What the compiler accepts as a call of a Java member or of a platform operation, and what it must refuse.
#include "bridge/passOn.h"
#include "bridge/signature.h"

using namespace talvern::bridge;

static_assert(Accepts<"(IILcom/kvo/talvern/firmwaremanager/UpgradeCode;)V", jint, jint, jobject>);
static_assert(Accepts<"(Ljava/lang/String;[Ljava/util/Map;Z)V", jstring, jobjectArray, jboolean>);
static_assert(Accepts<"(ZBCSIJFD)V", bool, jbyte, jchar, jshort, jint, jlong, jfloat, jdouble>);

static_assert(!Accepts<"(J)V", jint>);  // 32 bits where the callee reads 64
static_assert(!Accepts<"(Z)V", jint>);
static_assert(!Accepts<"(Ljava/lang/Object;)Z">);  // one forgotten
static_assert(!Accepts<"()V", jobject>);           // one too many
static_assert(!Accepts<"(Ljava/lang/String;I)V", jint, jstring>);
static_assert(!Accepts<"(Ljava/lang/Object;)V", const char*>);
static_assert(!Accepts<"([I)V", jint>);

static_assert(parameterType("(I[[Ljava/lang/String;J)V", 1) == "[[Ljava/lang/String;");
static_assert(resultType("(I)[Ljava/util/Map;") == "[Ljava/util/Map;");

using TextList = const std::vector<std::string>&;
static_assert(CanPassOn<jint, std::int32_t (*)(), std::int32_t>);
static_assert(CanPassOn<jboolean, bool (*)(const char*, bool, std::uint32_t), bool, jstring, jboolean, jint>);
static_assert(CanPassOn<NullIfEmpty, std::string (*)(TextList, std::int64_t), std::string, jobjectArray, jlong>);
static_assert(CanPassOn<jobjectArray, std::vector<std::string> (*)(int*), std::vector<std::string>, std::nullptr_t>);

static_assert(!CanPassOn<jint, std::int64_t (*)(), std::int64_t>);  // would be cut off
static_assert(!CanPassOn<jint, bool (*)(), bool>);                  // whether 0 is success or false is open
static_assert(!CanPassOn<jstring, const char* (*)(), const char*>);
static_assert(!CanPassOn<jobjectArray, std::string (*)(), std::string>);
static_assert(!CanPassOn<jint, std::int32_t (*)(std::string), std::int32_t>);  // one forgotten
static_assert(!CanPassOn<jint, std::int32_t (*)(), std::int32_t, jint>);       // one too many
static_assert(!CanPassOn<jint, std::int32_t (*)(std::string, bool), std::int32_t, jboolean, jstring>);
static_assert(!CanPassOn<jint, std::int32_t (*)(std::string&), std::int32_t, jstring>);
static_assert(!CanPassOn<jint, std::int32_t (*)(TextList), std::int32_t, jstring>);
static_assert(!CanPassOn<jint, std::int32_t (*)(std::int32_t), std::int32_t, std::nullptr_t>);
