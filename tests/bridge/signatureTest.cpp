// What the compiler accepts as a call of a Java member, and what it must refuse.
#include "bridge/signature.h"

static_assert(Accepts<"()V">);
static_assert(Accepts<"(IILcom/kvo/talvern/firmwaremanager/UpgradeCode;)V", jint, jint, jobject>);
static_assert(Accepts<"(Ljava/lang/String;[Ljava/util/Map;Z)V", jstring, jobjectArray, jboolean>);
static_assert(Accepts<"(ZBCSIJFD)V", bool, jbyte, jchar, jshort, jint, jlong, jfloat, jdouble>);

static_assert(!Accepts<"(J)V", jint>);  // 32 bits where the callee reads 64
static_assert(!Accepts<"(I)V", jlong>);
static_assert(!Accepts<"(I)V", unsigned>);
static_assert(!Accepts<"(D)V", jfloat>);
static_assert(!Accepts<"(Z)V", jint>);
static_assert(!Accepts<"(Ljava/lang/Object;)Z">);  // one forgotten
static_assert(!Accepts<"()V", jobject>);           // one too many
static_assert(!Accepts<"(Ljava/lang/String;I)V", jint, jstring>);
static_assert(!Accepts<"(Ljava/lang/Object;)V", const char*>);
static_assert(!Accepts<"([I)V", jint>);

static_assert(parameterType("(I[[Ljava/lang/String;J)V", 1) == "[[Ljava/lang/String;");
static_assert(resultType("(I)[Ljava/util/Map;") == "[Ljava/util/Map;");
