<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
</psc:chapters>
