<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
<psc:chapter start="00:00:01.000" title="Grüße, 世界 🎙" href="https://пример.example/ü"/>
</psc:chapters>
