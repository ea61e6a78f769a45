// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/demo/DemoScript.h"

namespace jx {

std::string_view demoScript() {
  // While consent is withdrawn one event is executed and not taken; one more is executed in the
  // background, where it waits; the second return comes late enough for a new session.
  return R"json(
{"do":"permanent","key":"profile","value":"living room"}
{"do":"event","class":"JXCustomEvent","name":"app_start","parameters":{"launch":"home screen","cold":true}}
{"do":"advance","ms":3200}
{"do":"event","class":"JXCustomEvent","name":"page_view","fields":{"pageName":"home","pageType":"landing"},"parameters":{"rows":12}}
{"do":"advance","ms":21800}
{"do":"event","class":"JXCustomEvent","name":"search","fields":{"pageName":"search"},"parameters":{"term":"lighthouse","results":7}}
{"do":"advance","ms":14100}
{"do":"event","class":"JXCustomEvent","name":"title_view","fields":{"pageName":"title","pageType":"film"},"parameters":{"title":"The Last Lighthouse","price":3.99,"currency":"EUR"}}
{"do":"advance","ms":9600}
{"do":"event","class":"JXCustomEvent","name":"film_rented","parameters":{"title":"The Last Lighthouse","price":3.99,"currency":"EUR","hours":48}}
{"do":"advance","ms":6400}
{"do":"event","class":"JXCustomEvent","name":"film_start","parameters":{"title":"The Last Lighthouse","length":5400,"quality":{"height":2160,"hdr":true}}}
{"do":"advance","ms":1260000}
{"do":"event","class":"JXCustomEvent","name":"film_pause","parameters":{"title":"The Last Lighthouse","position":1260}}
{"do":"background"}
{"do":"advance","ms":95000}
{"do":"event","class":"JXCustomEvent","name":"download_complete","parameters":{"title":"Seven Winters","megabytes":1843.2}}
{"do":"advance","ms":205000}
{"do":"foreground"}
{"do":"event","class":"JXCustomEvent","name":"film_resume","parameters":{"title":"The Last Lighthouse","position":1260}}
{"do":"advance","ms":840000}
{"do":"event","class":"JXCustomEvent","name":"consent_changed","parameters":{"measurement":false}}
{"do":"disable"}
{"do":"event","class":"JXCustomEvent","name":"page_view","fields":{"pageName":"settings","pageType":"privacy"}}
{"do":"advance","ms":48000}
{"do":"enable"}
{"do":"event","class":"JXCustomEvent","name":"consent_changed","parameters":{"measurement":true}}
{"do":"advance","ms":3252000}
{"do":"event","class":"JXCustomEvent","name":"film_complete","parameters":{"title":"The Last Lighthouse","position":5400,"credits":"skipped"}}
{"do":"advance","ms":11000}
{"do":"event","class":"JXCustomEvent","name":"rating","parameters":{"title":"The Last Lighthouse","stars":4.5}}
{"do":"background"}
{"do":"advance","ms":2700000}
{"do":"foreground"}
{"do":"forget","key":"profile"}
{"do":"permanent","key":"profile","value":"children"}
{"do":"event","class":"JXCustomEvent","name":"profile_switch","parameters":{"to":"children","age_limit":6}}
{"do":"advance","ms":7300}
{"do":"event","class":"JXCustomEvent","name":"film_start","parameters":{"title":"The Fox and the Moon","length":1320}}
{"do":"advance","ms":1320000}
{"do":"event","class":"JXCustomEvent","name":"film_complete","parameters":{"title":"The Fox and the Moon","position":1320}}
)json";
}

}  // namespace jx
